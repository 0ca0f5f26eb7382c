// SPDX-License-Identifier: MIT
#include "platform/linux/accelerator.h"

#include "platform/fake/fake_keyboard.h"
#include "platform/linux/gvariant_text.h"
#include "platform/linux/key_positions.h"
#include "platform/linux/xml_element.h"
#include "shortcut_notation.h"

#include <gmock/gmock.h>

namespace dwellkey {
namespace {

using testing::command;
using testing::control;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::option;
using testing::shift;

struct Case {
    const char* text;
    std::uint32_t modifiers;
    const char* key;
};

using Parse = std::optional<Accelerator> (*)(std::string_view);

void expectParsed(Parse parse, const std::vector<Case>& cases) {
    for (const Case& one : cases) {
        const auto parsed = parse(one.text);
        ASSERT_TRUE(parsed) << one.text;
        EXPECT_EQ(parsed->modifiers, one.modifiers) << one.text;
        EXPECT_EQ(parsed->key, one.key) << one.text;
    }
}

void expectRefused(Parse parse, const std::vector<const char*>& texts) {
    for (const char* text : texts) {
        EXPECT_EQ(parse(text), std::nullopt) << text;
    }
}

TEST(Accelerator, gtk_notation_is_read) {
    expectParsed(parseGtkAccelerator, {{"<Primary><Alt>t", command | option, "t"},
                                       {"<Control>q", command, "q"},
                                       {"<Super>Above_Tab", control, "Above_Tab"},
                                       {"<Mod4>r", control, "r"},
                                       {"<shift><SUPER>Page_Up", shift | control, "Page_Up"},
                                       {"XF86AudioMute", 0, "XF86AudioMute"},
                                       {"<Release>Print", 0, "Print"}});
    expectRefused(parseGtkAccelerator, {"", "<Alt>", "<Alt", "<Mod5>a", "<>a", "<Alt<b>c"});
}

TEST(Accelerator, qt_notation_is_read) {
    expectParsed(parseQtShortcut, {{"Meta+Shift+PgUp", control | shift, "Page_Up"},
                                   {"Ctrl+Alt+T", command | option, "T"},
                                   {"Ctrl++", command, "+"},
                                   {"Ctrl+Num++", command, "KP_Add"},
                                   {"Num+7", 0, "KP_7"},
                                   {"+", 0, "+"},
                                   {"Ctrl+,, Ctrl+S", command, ","},
                                   {"Ctrl+K, Ctrl+S", command, "K"},
                                   {"Volume Mute", 0, "XF86AudioMute"},
                                   {"Ctrl+Esc", command, "Escape"}});
    expectRefused(parseQtShortcut, {"", "Ctrl+", "Keypad+A", "A+B"});
}

TEST(Accelerator, openbox_notation_is_read) {
    expectParsed(parseOpenboxKey, {{"C-A-Left", command | option, "Left"},
                                   {"W-e", control, "e"},
                                   {"Super-S-Tab", control | shift, "Tab"},
                                   {"Mod4-minus", control, "minus"},
                                   {"Print", 0, "Print"}});
    expectRefused(parseOpenboxKey, {"", "C-", "Mod5-a", "Q-a", "C--"});
}

class KeyPositionsTest : public ::testing::Test {
protected:
    /// The key code, -1 for none.
    int codeOf(const std::string& name) {
        const auto position = KeyPositions(layout_).find(name);
        return position ? position->keyCode : -1;
    }

    FakeKeyboardLayout layout_;
};

TEST_F(KeyPositionsTest, names_of_keys_lead_to_their_codes) {
    const std::vector<std::pair<const char*, int>> cases = {
        {"q", 12},       {"Q", 12},         {"7", 26},
        {"minus", 27},   {"plus", 24},      {"grave", 50},
        {"`", 50},       {"Above_Tab", 50}, {"Return", 36},
        {"Prior", 116},  {"Page_Up", 116},  {"space", 49},
        {"Delete", 117}, {"F1", 122},       {"F20", 90},
        {"KP_Add", 69},  {"KP_End", 83},    {"XF86AudioMute", 74},
        {"0x18", 12},    {"escape", 53}};
    for (const auto& [name, code] : cases) {
        EXPECT_EQ(codeOf(name), code) << name;
    }
}

TEST_F(KeyPositionsTest, other_names_lead_nowhere) {
    for (const char* name : {"", "Print", "XF86Display", "disabled", "none", "0x", "0x7", "0x18g",
                             "0xfffffffff", "Super_L", "€", "custom0"}) {
        EXPECT_EQ(codeOf(name), -1) << name;
    }
}

TEST_F(KeyPositionsTest, characters_are_where_the_present_layout_has_them) {
    layout_.characters[0] = "q"; // AZERTY
    layout_.characters[12] = "a";
    layout_.characters[19] = "é";
    layout_.characters[30] = "+"; // as a German keyboard
    EXPECT_EQ(codeOf("q"), 0);
    EXPECT_EQ(codeOf("a"), 12);
    EXPECT_EQ(codeOf("eacute"), 19);
    EXPECT_EQ(KeyPositions(layout_).find("plus"), (KeyPosition{30, false}));
}

TEST_F(KeyPositionsTest, american_positions_serve_where_the_layout_types_no_latin_letters) {
    for (auto& [code, character] : layout_.characters) {
        character = "й";
    }
    EXPECT_EQ(codeOf("q"), 12);
    layout_.characters.clear();
    EXPECT_EQ(KeyPositions(layout_).find("plus"), (KeyPosition{24, true}));
}

TEST(GVariantText, strings_and_arrays_of_them_are_read) {
    EXPECT_THAT(gvariantStrings("'<Alt>F4'"), ElementsAre("<Alt>F4"));
    EXPECT_THAT(gvariantStrings("['<Super>Tab', '<Alt>Tab']\n"),
                ElementsAre("<Super>Tab", "<Alt>Tab"));
    EXPECT_THAT(gvariantStrings(R"(["it's", 'a\\b\'c\n'])"), ElementsAre("it's", "a\\b'c\n"));
    EXPECT_THAT(gvariantStrings("@as []"), IsEmpty());
}

TEST(GVariantText, other_values_and_torn_ones_hold_no_strings) {
    for (const char* text : {"", "true", "uint32 7", "['a'", "['a',]", "['a' 'b']", "'a", "'a\\",
                             "'a' 'b'", "[1, 2]", "@ai []", "('a', 'b')"}) {
        EXPECT_THAT(gvariantStrings(text), IsEmpty()) << text;
    }
}

TEST(XmlElement, malformed_and_hostile_files_are_refused_with_their_line) {
    std::string deep;
    for (int i = 0; i < 65; ++i) {
        deep += "<a>\n";
    }
    const std::vector<std::pair<std::string, const char*>> cases = {
        {"", "line 1: no element found"},
        {"<a>\n<b></a>", "line 2: mismatched tag"},
        {"<a/>x", "line 1: junk after document element"},
        {deep, "line 65: too deeply nested"},
        {deep.substr(0, 256) + "<e/>", "line 65: too deeply nested"}};
    for (const auto& [text, cause] : cases) {
        const auto parsed = parseXml(text);
        ASSERT_TRUE(std::holds_alternative<XmlProblem>(parsed)) << cause;
        EXPECT_EQ(std::get<XmlProblem>(parsed).cause, cause);
    }
}

} // namespace
} // namespace dwellkey
