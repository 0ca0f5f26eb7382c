// SPDX-License-Identifier: MIT
#include "platform/linux/settings_format.h"

#include "platform/linux/text_encoding.h"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>
#include <vector>

namespace dwellkey {
namespace {

using nlohmann::json;

constexpr const char* dataKey = "$data";
constexpr const char* base64DataKey = "$data64";
constexpr const char* base64TextKey = "$text64";

/// Checks what the document builder would let pass or choke on, and says what is wrong.
class SettingsChecker final : public nlohmann::json_sax<json> {
public:
    std::string cause;

    bool null() override { return isInside(); }
    bool boolean(bool /*value*/) override { return isInside(); }
    bool number_integer(number_integer_t /*value*/) override { return isInside(); }
    bool number_unsigned(number_unsigned_t /*value*/) override { return isInside(); }
    bool number_float(number_float_t /*value*/, const string_t& /*text*/) override {
        return isInside();
    }
    bool string(string_t& /*value*/) override { return isInside(); }
    bool binary(binary_t& /*value*/) override { return isInside(); }
    bool start_object(std::size_t /*elements*/) override {
        keys_.emplace_back();
        return isShallow();
    }
    bool key(string_t& name) override {
        if (keys_.back().insert(name).second) {
            return true;
        }
        cause = "the key \"" + name + "\" appears twice";
        return false;
    }
    bool end_object() override { return end(); }
    bool start_array(std::size_t /*elements*/) override {
        const bool inside = isInside();
        keys_.emplace_back();
        return inside && isShallow();
    }
    bool end_array() override { return end(); }
    bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                     const nlohmann::detail::exception& error) override {
        cause = error.what();
        return false;
    }

private:
    bool isInside() {
        if (keys_.empty()) {
            cause = "it is not a JSON object";
        }
        return !keys_.empty();
    }
    bool isShallow() {
        if (keys_.size() > deepestSettingsNesting) {
            cause = "it nests more than " + std::to_string(deepestSettingsNesting) + " levels deep";
        }
        return keys_.size() <= deepestSettingsNesting;
    }
    bool end() {
        keys_.pop_back();
        return true;
    }

    std::vector<std::set<std::string>> keys_; // of each open object; empty for an array
};

json encodeText(const std::string& text) {
    return isUtf8(text) ? json(text) : json{{base64TextKey, encodeBase64(text)}};
}

struct Encoder {
    json operator()(bool value) const { return value; }
    json operator()(std::int64_t value) const { return value; }
    json operator()(double value) const { return value; }
    json operator()(const std::string& text) const { return encodeText(text); }
    json operator()(const std::vector<std::string>& texts) const {
        json array = json::array();
        for (const std::string& text : texts) {
            array.push_back(encodeText(text));
        }
        return array;
    }
    json operator()(const Data& data) const {
        return isUtf8(data.bytes) ? json{{dataKey, data.bytes}}
                                  : json{{base64DataKey, encodeBase64(data.bytes)}};
    }
};

/// The string below `key` in an object that holds nothing else.
const std::string* wrapped(const json& value, const char* key) {
    if (!value.is_object() || value.size() != 1 || !value.contains(key)) {
        return nullptr;
    }
    return value.at(key).get_ptr<const std::string*>();
}

std::optional<std::string> decodeString(const json& value) {
    if (value.is_string()) {
        return value.get<std::string>();
    }
    const std::string* encoded = wrapped(value, base64TextKey);
    return encoded == nullptr ? std::nullopt : decodeBase64(*encoded);
}

std::optional<DefaultsValue> decodeArray(const json& value) {
    std::vector<std::string> texts;
    for (const json& element : value) {
        auto text = decodeString(element);
        if (!text) {
            return std::nullopt;
        }
        texts.push_back(std::move(*text));
    }
    return texts;
}

std::optional<DefaultsValue> decodeObject(const json& value) {
    if (const std::string* bytes = wrapped(value, dataKey)) {
        return Data{*bytes};
    }
    if (const std::string* encoded = wrapped(value, base64DataKey)) {
        auto bytes = decodeBase64(*encoded);
        return bytes ? std::optional<DefaultsValue>(Data{std::move(*bytes)}) : std::nullopt;
    }
    return decodeString(value);
}

std::optional<DefaultsValue> decode(const json& value) {
    switch (value.type()) {
    case json::value_t::boolean:
        return value.get<bool>();
    case json::value_t::number_integer:
        return value.get<std::int64_t>();
    case json::value_t::number_unsigned:
        if (value.get<std::uint64_t>() > std::numeric_limits<std::int64_t>::max()) {
            return value.get<double>();
        }
        return value.get<std::int64_t>();
    case json::value_t::number_float:
        return value.get<double>();
    case json::value_t::string:
        return value.get<std::string>();
    case json::value_t::array:
        return decodeArray(value);
    case json::value_t::object:
        return decodeObject(value);
    default:
        return std::nullopt;
    }
}

} // namespace

std::variant<SettingsDocument, SettingsProblem> parseSettings(std::string_view text) {
    SettingsChecker checker;
    if (!json::sax_parse(text, &checker)) {
        return SettingsProblem{checker.cause};
    }
    SettingsDocument settings;
    const json document = json::parse(text);
    for (const auto& [key, value] : document.items()) {
        settings.emplace_hint(settings.end(), key, Setting{value.dump(), decode(value)});
    }
    return settings;
}

std::string serializeSettings(const SettingsDocument& settings) {
    json document = json::object();
    for (const auto& [key, setting] : settings) {
        document.emplace(key, json::parse(setting.json));
    }
    return document.dump(4) + "\n";
}

std::optional<Setting> makeSetting(DefaultsValue value) {
    const auto* number = std::get_if<double>(&value);
    if (number != nullptr && !std::isfinite(*number)) {
        return std::nullopt;
    }
    std::string text = std::visit(Encoder{}, value).dump();
    return Setting{std::move(text), std::move(value)};
}

} // namespace dwellkey
