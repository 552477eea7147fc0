#include "shell/language.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/ini_file.h"
#include "platform/real/real_files.h"
#include "support/temporary_folder.h"

namespace shell {

namespace {

using namespace std::string_view_literals;

struct Loaded {
    explicit Loaded(std::string_view content) {
        const auto file = folder.Path() / "PROVA.LNG";
        std::ofstream(file, std::ios::binary) << content;
        language.Load(files, file);
    }
    support::TemporaryFolder folder;
    platform::real::RealFiles files;
    Language language;
};

}  // namespace

TEST(Language, GivesTheTextBehindAKeyAndNothingForAMissingOne) {
    Loaded l("[ERRORI]\r\nTITOLO_2 = Marlovent \r\nCITATO=\" con blanchi \"\r\nVUOTO=\r\n[TASTI]\nOK.0=OK\n");
    EXPECT_EQ(l.language.Text("TITOLO_2", "ERRORI"), "Marlovent");
    EXPECT_EQ(l.language.Text("titolo_2", "errori"), "Marlovent");
    EXPECT_EQ(l.language.Text("CITATO", "ERRORI"), " con blanchi ");
    EXPECT_EQ(l.language.Text("OK.0", "TASTI"), "OK");
    for (const auto& [key, section] :
         {std::pair{"VUOTO", "ERRORI"}, {"OK.0", "ERRORI"}, {"OK.0", "ALTRO"}, {"", ""}, {"OK.0\nX", "TASTI"}}) {
        EXPECT_EQ(l.language.Text(key, section), "") << section << " " << key;
    }
    l.language.Load(l.files, l.folder.Path() / "MANCA.LNG");
    EXPECT_EQ(l.language.Text("OK.0", "TASTI"), "") << "the texts of the file before are gone";
}

TEST(Language, CutsATextToTheBufferThatAllTextsShare) {
    Loaded l("[A]\nLUNGO=" + std::string(255, 'x') + "yz\nGIUSTO=" + std::string(255, 'x') + "\n");
    EXPECT_EQ(l.language.Text("LUNGO", "A"), std::string(255, 'x'));
    EXPECT_EQ(l.language.Text("GIUSTO", "A"), std::string(255, 'x'));
}

// Whatever an editor has left in the file, a text is what the profile strings of a system would read.
TEST(Language, ReadsOddFilesAsProfileStringsDo) {
    for (const std::string_view content : {
             "\xEF\xBB\xBF[A]\r\nK=v\r\n"sv,           // the mark that some editors put in front
             "K=outside\r\n[A]\r\nL=v\r\n"sv,          // a key before any section
             "[A\r\nK=v\r\n"sv,                        // a bracket that is not closed
             "[A]\r\nK=1\r\n[B]\r\n[A]\r\nK=2\r\n"sv,  // a section twice
             "[A]\r\nL=1\r\n[B]\r\n[A]\r\nK=2\r\n"sv,  // what its second half adds is not found
             "[A]\r\nK=1\r\nK=2\r\n"sv,
             "[ A ]\r\n\tK\t=\tv\t\r\n"sv,
             "[A] ; remark\r\n;K=no\r\nK=v=w\r\n"sv,
             "[A]\rK=v\r"sv,
             "[A]\n=v\nK\nK=v"sv,
             "[]\nK=v\n[A]\n"sv,
             "[A]\nK=\"v\n"sv,
             "[A]\nK='v'\n"sv,
             "[A]\nK=v\r\r\n"sv,
             "\0[A]\0\nK=v\0w\n"sv,
             ""sv,
         }) {
        Loaded l(content);
        for (const char* key : {"K", "L", "", ";K"}) {
            for (const char* section : {"A", "B", ""}) {
                EXPECT_EQ(l.language.Text(key, section),
                          platform::IniText(content).Get(section, key).value_or(std::string()))
                    << '"' << content << "\" [" << section << "] " << key;
            }
        }
    }
}

TEST(Language, SurvivesAFileThatIsNone) {
    std::string noise(300000, '\0');
    unsigned seed = 7;
    for (char& c : noise) c = static_cast<char>((seed = seed * 1664525U + 1013904223U) >> 24U);
    Loaded l(noise + "\n[A]\nK=v\n");
    EXPECT_EQ(l.language.Text("K", "A"), "v");
    Loaded huge(std::string(6U << 20U, '=') + "\n[A]\nK=v\n");
    EXPECT_EQ(huge.language.Text("K", "A"), "") << "what stands behind any sensible size is not read";
}

TEST(Language, TakesTheAccessMarksOutOfACaption) {
    EXPECT_EQ(CaptionPulita("&File"), "File");
    EXPECT_EQ(CaptionPulita("Gestione &EEPROM"), "Gestione EEPROM");
    EXPECT_EQ(CaptionPulita("A && B"), "A & B");
    EXPECT_EQ(CaptionPulita("Fine&"), "Fine");
    EXPECT_EQ(CaptionPulita(""), "");
}

TEST(Language, PutsValuesIntoTheirPlacesOnce) {
    EXPECT_EQ(Fill("a %1 b %2 c %1", "x", "y"), "a x b y c x");
    EXPECT_EQ(Fill("%1", "%2", "y"), "%2");  // a value is no pattern
    EXPECT_EQ(Fill("100% %", "x"), "100% %");
}

}  // namespace shell
