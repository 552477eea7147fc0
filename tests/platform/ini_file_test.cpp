#include "platform/ini_file.h"

#include <gtest/gtest.h>

#include "platform/virtual/faulty_files.h"

namespace platform {

namespace {

using namespace std::string_view_literals;

// One file in memory, as far as the profile strings need it.
class OneFile : public Files {
  public:
    std::optional<std::string> Read(const Path&, std::size_t limit) override {
        if (!readable) return std::nullopt;
        return content ? std::optional(content->substr(0, limit)) : std::nullopt;
    }
    bool Write(const Path&, std::string_view text) override {
        content = text;
        return true;
    }
    bool Append(const Path&, std::string_view) override { return false; }
    bool Remove(const Path&) override { return false; }
    bool Copy(const Path&, const Path&) override { return false; }
    bool Exists(const Path&) override { return content.has_value(); }
    std::optional<std::uint64_t> Size(const Path&) override { return content ? content->size() : 0; }
    std::vector<std::string> List(const Path&, std::string_view) override { return {}; }
    bool MakeFolders(const Path&) override { return false; }
    bool MakeCurrent(const Path&) override { return false; }
    bool FolderExists(const Path&) override { return false; }

    std::optional<std::string> content;
    bool readable = true;
};

std::string Get(std::string_view content, std::string_view key, std::string_view section = "SERIALE") {
    return IniText(content).Get(section, key).value_or("(none)");
}

std::string AfterSet(std::string_view content, std::string_view section, std::string_view key, std::string_view value) {
    IniText text(content);
    text.Set(section, key, value);
    return text.Content();
}

}  // namespace

TEST(IniText, ReadsTheKeyOfItsSectionHoweverTheFileIsTyped) {
    struct Case {
        const char* why;
        std::string_view content;
        std::string_view value;
    };
    const Case cases[] = {
        {"CR LF", "[SERIALE]\r\nCOM=COM2\r\n", "COM2"},
        {"LF, no end of line", "[SERIALE]\nCOM=COM2", "COM2"},
        {"any case", "[Seriale]\ncom=Com2", "Com2"},
        {"blanks", "  [ SERIALE ] ; the line\n \tCOM \t= COM2 \t\n", "COM2"},
        {"quotes, one pair", "[SERIALE]\nCOM=\"'a'\"", "'a'"},
        {"single quotes", "[SERIALE]\nCOM=' a '", " a "},
        {"unpaired quote", "[SERIALE]\nCOM=\"", "\""},
        {"equals sign in the value", "[SERIALE]\nCOM=a=b", "a=b"},
        {"empty value", "[SERIALE]\nCOM=", ""},
        {"first of two keys", "[SERIALE]\nCOM=1\nCOM=2", "1"},
        {"first of two sections", "[SERIALE]\nX=1\n[SERIALE]\nCOM=2", "(none)"},
        {"other section", "[ALTRA]\nCOM=1\n[SERIALE]\nCOM=2\n[TERZA]\nCOM=3", "2"},
        {"remark", "[SERIALE]\n;COM=1\n# COM=2", "(none)"},
        {"no section", "COM=1", "(none)"},
        {"unclosed section", "[SERIALE\nCOM=1", "(none)"},
        {"UTF-8 mark of an editor", "\xEF\xBB\xBF[SERIALE]\nCOM=COM2", "COM2"},
        {"sixteen-bit text", "[\0S\0E\0R\0]\0\n\0C\0"sv, "(none)"},
        {"binary", "\0\xFF[SERIALE]\0\n\x1A\n[SERIALE]\nCOM=a\0b"sv, "a\0b"sv},
        {"empty", "", "(none)"},
        {"lines only", "\r\n\n\r\r\n=\n[]\n", "(none)"},
    };
    for (const Case& c : cases) EXPECT_EQ(Get(c.content, "COM"), c.value) << c.why;
    EXPECT_EQ(Get("[CITT\xC0]\nPERCH\xC9=1", "perch\xE9", "citt\xE0"), "1") << "letters of the code page";
}

TEST(IniText, SettingAKeyKeepsEveryOtherLineAsItStands) {
    const std::string_view file = "; head\r\n[A]\nx = 1 \r\nrubbish\n\n[B]\nx=2";
    EXPECT_EQ(AfterSet(file, "a", "X", "9"), "; head\r\n[A]\r\nX=9\r\nrubbish\r\n\r\n[B]\r\nx=2\r\n");
    EXPECT_EQ(AfterSet(file, "A", "y", "9"), "; head\r\n[A]\r\nx = 1 \r\nrubbish\r\ny=9\r\n\r\n[B]\r\nx=2\r\n");
    EXPECT_EQ(AfterSet(file, "B", "y", ""), "; head\r\n[A]\r\nx = 1 \r\nrubbish\r\n\r\n[B]\r\nx=2\r\ny=\r\n");
    EXPECT_EQ(AfterSet(file, "C", "y", "9"), "; head\r\n[A]\r\nx = 1 \r\nrubbish\r\n\r\n[B]\r\nx=2\r\n[C]\r\ny=9\r\n");
    EXPECT_EQ(AfterSet("", "C", "y", "9"), "[C]\r\ny=9\r\n");
    EXPECT_EQ(AfterSet("\xEF\xBB\xBF[C]\n", "C", "y", "9"), "\xEF\xBB\xBF[C]\r\ny=9\r\n");
}

TEST(IniText, ANewKeyStandsWhereTheOrderHasIt) {
    constexpr IniKey Order[] = {{"A", "one"}, {"A", "two"}, {"A", "three"}, {"B", "x"}, {"C", "y"}};
    struct Case {
        const char* why;
        std::string_view file;
        const char* section;
        const char* key;
        std::string_view after;
    };
    for (const Case& c : {
             Case{"between two", "[A]\nONE=1\nthree=3\n", "a", "two", "[A]\r\nONE=1\r\ntwo=9\r\nthree=3\r\n"},
             Case{"first", "[A]\n; remark\nthree=3\n", "A", "one", "[A]\r\n; remark\r\none=9\r\nthree=3\r\n"},
             Case{"last", "[A]\ntwo=2\n\n[C]\ny=1\n", "A", "three", "[A]\r\ntwo=2\r\nthree=9\r\n\r\n[C]\r\ny=1\r\n"},
             Case{"behind the last of a wild order", "[A]\ntwo=2\none=1\n", "A", "three",
                  "[A]\r\ntwo=2\r\none=1\r\nthree=9\r\n"},
             Case{"unknown key", "[A]\none=1\nthree=3\n", "A", "other", "[A]\r\none=1\r\nthree=3\r\nother=9\r\n"},
             Case{"section between two", "[A]\none=1\n[C]\ny=1\n", "B", "x",
                  "[A]\r\none=1\r\n[B]\r\nx=9\r\n[C]\r\ny=1\r\n"},
             Case{"first section", "; head\n[Other]\n[B]\nx=1\n", "A", "two",
                  "; head\r\n[Other]\r\n[A]\r\ntwo=9\r\n[B]\r\nx=1\r\n"},
             Case{"unknown section", "[B]\nx=1\n", "Z", "z", "[B]\r\nx=1\r\n[Z]\r\nz=9\r\n"},
             Case{"a key there already", "[A]\nthree=3\nOne=1\n", "A", "one", "[A]\r\nthree=3\r\none=9\r\n"},
         }) {
        IniText text(c.file);
        text.Set(c.section, c.key, "9", Order);
        EXPECT_EQ(text.Content(), c.after) << c.why;
    }
}

TEST(IniText, AHugeFileIsReadAndKept) {
    std::string content = "[A]\n";
    for (int i = 0; i < 100000; ++i) content += "key" + std::to_string(i) + "=" + std::to_string(i) + "\n";
    content += std::string(1000000, 'x') + "\n[SERIALE]\nCOM=COM2\n";
    EXPECT_EQ(Get(content, "key99999", "A"), "99999");
    EXPECT_EQ(Get(content, "COM"), "COM2");
    EXPECT_EQ(AfterSet(content, "SERIALE", "COM", "COM3").size(), content.size() + 100004);
}

TEST(ProfileStrings, AMissingOrUnreadableFileGivesTheDefault) {
    OneFile files;
    EXPECT_EQ(GetPrivateProfileString(files, "A", "x", "default", "f"), "default");
    EXPECT_TRUE(WritePrivateProfileString(files, "A", "x", "1", "f"));
    EXPECT_EQ(files.content, "[A]\r\nx=1\r\n");
    EXPECT_EQ(GetPrivateProfileString(files, "a", "X", "default", "f"), "1");
    EXPECT_EQ(GetPrivateProfileString(files, "A", "y", "default", "f"), "default");
    files.readable = false;
    EXPECT_EQ(GetPrivateProfileString(files, "A", "x", "default", "f"), "default");
}

TEST(ProfileStrings, AFileThatCannotBeReadWholeIsNeverReplacedByOneKey) {
    OneFile files;
    files.content = "[A]\r\nx=1\r\n";
    files.readable = false;
    EXPECT_FALSE(WritePrivateProfileString(files, "A", "y", "2", "f"));
    EXPECT_EQ(files.content, "[A]\r\nx=1\r\n");

    files.readable = true;
    files.content = std::string(Files::DefaultLimit + 1, ' ');
    EXPECT_FALSE(WritePrivateProfileString(files, "A", "y", "2", "f"));
    EXPECT_EQ(files.content->size(), Files::DefaultLimit + 1);

    virt::FaultyFiles faulty(files);
    files.content = "";
    faulty.FailWrites(true);
    EXPECT_FALSE(WritePrivateProfileString(faulty, "A", "y", "2", "f"));
}

}  // namespace platform
