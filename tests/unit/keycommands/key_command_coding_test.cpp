// SPDX-License-Identifier: MIT
#include "keycommands/key_command_coding.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

constexpr std::string_view commandQ =
    R"({"key":12,"modifiers":[{"command":{}}],)"
    R"("name":{"rawValue":"quitApplication","prefix":"","separator":""}})";

template <typename Value>
std::string descriptionOf(const Coded<Value>& coded) {
    const auto* error = std::get_if<CodingError>(&coded);
    return error == nullptr ? "no error" : error->description;
}

TEST(KeyCommandCoding, storedForm_isReadAndWrittenWithTheSameBytes) {
    const auto decoded = decodeKeyCommand(commandQ);
    ASSERT_EQ(descriptionOf(decoded), "no error");
    const auto& content = std::get<KeyCommandContent>(decoded);
    EXPECT_EQ(content.key, Key::q);
    EXPECT_EQ(content.modifiers, Modifiers{Modifier::command});
    EXPECT_EQ(content.name, KeyCommand::Name("quitApplication"));
    EXPECT_EQ(std::get<std::string>(encode(content)), commandQ);
}

TEST(KeyCommandCoding, modifierOrderPrefixAndAbsentKey_surviveTheRoundTrip) {
    const KeyCommandContent content{
        std::nullopt,
        {Modifier::shift, Modifier::command, Modifier::control, Modifier::option},
        KeyCommand::Name("name", KeyCommand::Name::Prefix{"prefix"}, "\"\u00e9.")};
    const auto json = encode(content);
    EXPECT_EQ(std::get<KeyCommandContent>(decodeKeyCommand(std::get<std::string>(json))), content);
}

TEST(KeyCommandCoding, decodeModifier_wantsExactlyOneKnownCase) {
    EXPECT_EQ(std::get<Modifier>(decodeModifier(R"({"option":{}})")), Modifier::option);
    for (const char* json : {"{}", R"({"option":{},"shift":{}})"}) {
        EXPECT_EQ(descriptionOf(decodeModifier(json)),
                  "Invalid number of keys found, expected one.");
    }
    for (const char* json : {R"({"hyper":{}})", R"({"option":1})", R"("option")", ""}) {
        EXPECT_NE(descriptionOf(decodeModifier(json)), "no error") << json;
    }
}

TEST(KeyCommandCoding, decodeKey_wantsTheCodeOfAKey) {
    EXPECT_EQ(std::get<Key>(decodeKey("10")), Key::isoSection);
    for (const char* json : {"63", "-1", "12.5", "\"12\"", "18446744073709551615", "4294967308"}) {
        EXPECT_NE(descriptionOf(decodeKey(json)), "no error") << json;
    }
}

TEST(KeyCommandCoding, damagedCommands_areErrorsAndNeverExceptions) {
    for (const char* json :
         {"", "{", "[]", "null", "\xff", R"({"key":12})",
          R"({"key":12,"modifiers":{},"name":{"rawValue":"a","prefix":"","separator":""}})",
          R"({"key":12,"modifiers":[{"command":{}}],"name":"quitApplication"})",
          R"({"key":12,"modifiers":[{"command":{}}],"name":{"rawValue":"a","prefix":""}})",
          R"({"key":12,"modifiers":[1],"name":{"rawValue":"a","prefix":"","separator":""}})",
          R"({"key":1e999,"modifiers":[],"name":{"rawValue":"a","prefix":"","separator":""}})"}) {
        EXPECT_NE(descriptionOf(decodeKeyCommand(json)), "no error") << json;
    }
}

TEST(KeyCommandCoding, nameThatIsNotUtf8_isAnError) {
    EXPECT_NE(descriptionOf(encode(KeyCommand::Name("\xff"))), "no error");
}

TEST(KeyCommandCoding, eventTypes_haveTheKeyedForm) {
    using EventType = KeyCommand::EventType;
    EXPECT_EQ(encode(EventType::keyUp), R"({"keyUp":{}})");
    EXPECT_EQ(encode(EventType::keyDown), R"({"keyDown":{}})");
    EXPECT_EQ(encode(EventType::doubleTap(std::chrono::milliseconds(300))),
              R"({"doubleTap":{"_0":0.3}})");
}

} // namespace
} // namespace dwellkey
