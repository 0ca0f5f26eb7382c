// SPDX-License-Identifier: MIT
#include "keycommands/key_command_coding.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace dwellkey {
namespace {

using Json = nlohmann::ordered_json; // the fields keep the order in which they are written

constexpr std::array<std::string_view, allCases<Modifier>.size()> modifierNames{"control", "option",
                                                                                "shift", "command"};

Json toJson(Modifier modifier) {
    return {{std::string(modifierNames[static_cast<std::size_t>(modifier)]), Json::object()}};
}

Json toJson(const Modifiers& modifiers) {
    Json list = Json::array();
    for (const Modifier modifier : modifiers) {
        list.push_back(toJson(modifier));
    }
    return list;
}

Json toJson(const KeyCommand::Name& name) {
    Json object = Json::object();
    object["rawValue"] = name.rawValue;
    object["prefix"] = name.prefix.rawValue;
    object["separator"] = name.separator;
    return object;
}

Coded<std::string> textOf(const Json& json) {
    try {
        return json.dump();
    } catch (const Json::type_error& error) { // thrown for a text that is not UTF-8
        return CodingError{error.what()};
    }
}

/// Decodes field by field and remembers the first thing that went wrong.
class Decoder {
public:
    explicit Decoder(std::string_view text) : root_(Json::parse(text, nullptr, false)) {
        if (root_.is_discarded()) {
            fail("The data is not valid JSON.");
        }
    }

    [[nodiscard]] const Json& root() const { return root_; }

    template <typename Value>
    Coded<Value> finish(std::optional<Value> value) {
        if (error_ || !value) {
            return std::move(error_).value_or(CodingError{"No value found."});
        }
        return *std::move(value);
    }

    std::optional<Key> key(const Json& json) {
        const auto code = json.is_number_integer() ? integer(json) : std::nullopt;
        const auto key = code ? keyFromRawValue(*code) : std::nullopt;
        if (!key) {
            fail("No key has this code.");
        }
        return key;
    }

    std::optional<Modifier> modifier(const Json& json) {
        if (!json.is_object()) {
            return fail("A modifier is an object.");
        }
        if (json.size() != 1) {
            return fail("Invalid number of keys found, expected one.");
        }
        const auto* const name = std::ranges::find(modifierNames, json.begin().key());
        if (name == modifierNames.end() || !json.begin()->is_object()) {
            return fail("Unknown modifier.");
        }
        return allCases<Modifier>[static_cast<std::size_t>(name - modifierNames.begin())];
    }

    std::optional<KeyCommandContent> keyCommand() {
        const Json* const key = field(root_, "key");
        const Json* const modifiers = field(root_, "modifiers");
        const Json* const name = field(root_, "name");
        if (key == nullptr || modifiers == nullptr || name == nullptr) {
            return std::nullopt;
        }
        return KeyCommandContent{key->is_null() ? std::nullopt : this->key(*key),
                                 modifierList(*modifiers),
                                 KeyCommand::Name(text(*name, "rawValue"),
                                                  KeyCommand::Name::Prefix{text(*name, "prefix")},
                                                  text(*name, "separator"))};
    }

private:
    std::nullopt_t fail(std::string description) {
        if (!error_) {
            error_ = CodingError{std::move(description)};
        }
        return std::nullopt;
    }

    static std::optional<std::int64_t> integer(const Json& json) {
        const auto value = json.get<std::int64_t>();
        return json.is_number_unsigned() && value < 0 ? std::nullopt : std::optional(value);
    }

    const Json* field(const Json& object, const char* name) {
        const auto found = object.is_object() ? object.find(name) : object.end();
        if (found == object.end()) {
            fail("No field \"" + std::string(name) + "\" found.");
            return nullptr;
        }
        return &*found;
    }

    std::string text(const Json& object, const char* name) {
        const Json* const json = field(object, name);
        if (json == nullptr || !json->is_string()) {
            fail("The field \"" + std::string(name) + "\" is not a text.");
            return {};
        }
        return json->get<std::string>();
    }

    Modifiers modifierList(const Json& list) {
        Modifiers modifiers;
        if (!list.is_array()) {
            fail("The modifiers are not a list.");
            return modifiers;
        }
        for (const Json& element : list) {
            if (const auto decoded = modifier(element)) {
                modifiers.push_back(*decoded);
            }
        }
        return modifiers;
    }

    Json root_;
    std::optional<CodingError> error_;
};

} // namespace

Coded<std::string> encode(const KeyCommandContent& content) {
    Json object = Json::object();
    object["key"] = content.key ? Json(rawValue(*content.key)) : Json(nullptr);
    object["modifiers"] = toJson(content.modifiers);
    object["name"] = toJson(content.name);
    return textOf(object);
}

Coded<std::string> encode(const KeyCommand::Name& name) {
    return textOf(toJson(name));
}

std::string encode(Key key) {
    return Json(rawValue(key)).dump();
}

std::string encode(Modifier modifier) {
    return toJson(modifier).dump();
}

std::string encode(const KeyCommand::EventType& eventType) {
    using Kind = KeyCommand::EventType::Kind;
    switch (eventType.kind) {
    case Kind::keyUp:
        return R"({"keyUp":{}})";
    case Kind::keyDown:
        return R"({"keyDown":{}})";
    case Kind::doubleTap:
        return Json{{"doubleTap", {{"_0", eventType.interval.count()}}}}.dump();
    }
    return {};
}

Coded<KeyCommandContent> decodeKeyCommand(std::string_view json) {
    Decoder decoder(json);
    return decoder.finish(decoder.keyCommand());
}

std::optional<Coded<KeyCommandContent>> storedKeyCommand(const UserDefaults& store,
                                                         const KeyCommand::Name& name) {
    if (!store.contains(name.storageKey())) {
        return std::nullopt;
    }
    const DefaultsValue* stored = store.find(name.storageKey());
    const auto* data = stored == nullptr ? nullptr : std::get_if<Data>(stored);
    if (data == nullptr) {
        return CodingError{"It is not data."};
    }
    auto decoded = decodeKeyCommand(data->bytes);
    const auto* content = std::get_if<KeyCommandContent>(&decoded);
    if (content != nullptr && content->name != name) {
        return CodingError{"It is the entry of another command."};
    }
    return decoded;
}

Coded<Key> decodeKey(std::string_view json) {
    Decoder decoder(json);
    return decoder.finish(decoder.key(decoder.root()));
}

Coded<Modifier> decodeModifier(std::string_view json) {
    Decoder decoder(json);
    return decoder.finish(decoder.modifier(decoder.root()));
}

} // namespace dwellkey
