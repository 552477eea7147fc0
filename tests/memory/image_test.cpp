#include "memory/image.h"

#include <gtest/gtest.h>

#include "link/frames/numbers.h"
#include "memory/image_cells.h"
#include "memory/inspector_file.h"
#include "memory/names.h"
#include "support/simulated.h"

namespace {

using memory::ByteCella;

// Byte number B of the image holds B modulo 251, so that no two neighbouring lines are alike.
std::string CountedImage() {
    std::string image;
    for (int byte = 0; byte < 2 * memory::AreaBytes; ++byte)
        image += frames::Hex(static_cast<std::uint32_t>(byte % 251), 1);
    return image;
}

const platform::WallTime Today{2026, 11, 24, 12, 0, 0, 0};

void SetText(std::string& image, int address, const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        memory::SetCella(image, address + static_cast<int>(i), frames::Hex(static_cast<unsigned char>(text[i]), 1));
    }
}

TEST(Image, ReadsCellsOfBothAreasBigEndianAndErasedBeyondItsEnd) {
    const std::string image = CountedImage();
    EXPECT_EQ(ByteCella(image, 0, 1), 0U);
    EXPECT_EQ(ByteCella(image, 1, 2), 0x0102U);
    EXPECT_EQ(ByteCella(image, 1023, 1), 1023U % 251);
    EXPECT_EQ(ByteCella(image, 3072, 1), 1024U % 251);
    EXPECT_EQ(ByteCella(image, 4095, 1), 2047U % 251);
    EXPECT_EQ(ByteCella(image, 4, 4), 0x04050607U);
    const std::string cut = image.substr(0, 2 * 1025 + 1);
    EXPECT_EQ(ByteCella(cut, 3072, 2), 1024U % 251 * 256 + 255) << "half a byte is none";
    EXPECT_EQ(ByteCella("", 3072, 2), 65535U);
    EXPECT_EQ(ByteCella(std::string(4096, 'x'), 0, 1), 255U);
}

TEST(Image, AWriteNeverRunsOverTheEndOfItsArea) {
    struct Row {
        int address;
        const char* digits;
        bool written;
    };
    const std::string before = CountedImage();
    for (const Row& row : {Row{1022, "AAAA", true}, Row{1023, "AAAA", false}, Row{1020, "AAAAAAAA", true},
                           Row{4095, "AA", true}, Row{4095, "AAAA", false}, Row{1024, "AA", false},
                           Row{3071, "AAAA", false}, Row{-1, "AA", false}, Row{0, "", false}}) {
        std::string image = before;
        memory::SetCella(image, row.address, row.digits);
        EXPECT_EQ(image != before, row.written) << row.address << row.digits;
        EXPECT_EQ(image.size(), before.size());
    }
    EXPECT_EQ(ByteCella(before, 1023, 2), 1023U % 251 * 256 + 255) << "nor does a read";
}

TEST(Image, RecordsAndColumnsOfTheFileView) {
    struct Row {
        int address, record, column;
    };
    for (const Row& row : {Row{0, 1, 1}, Row{15, 1, 31}, Row{16, 2, 1}, Row{1023, 64, 31}, Row{3072, 65, 1},
                           Row{4074, 127, 21}, Row{4095, 128, 31}}) {
        EXPECT_EQ(memory::RecordImmagine(row.address).record, row.record) << row.address;
        EXPECT_EQ(memory::RecordImmagine(row.address).column, row.column) << row.address;
    }
}

TEST(Image, FilesComeBackByteForByte) {
    support::TemporaryFolder folder;
    platform::real::RealFiles files;
    const auto file = folder.Path() / "A.MVN";
    const std::string image = CountedImage();
    ASSERT_TRUE(memory::ScriviImmagine(files, file, {image.substr(0, 2048), image.substr(2048)}));
    EXPECT_EQ(files.Size(file), memory::ImageFileSize);
    const std::string content = *files.Read(file, platform::Files::DefaultLimit);
    EXPECT_EQ(content.substr(0, 34), image.substr(0, 32) + "\r\n");
    EXPECT_EQ(content.substr(34 * 64, 34), image.substr(2048, 32) + "\r\n");
    EXPECT_EQ(memory::LeggiImmagine(files, file), image);
    const auto areas = memory::LeggiAree(files, file);
    EXPECT_EQ(areas->external + areas->internal, image);
    EXPECT_FALSE(memory::LeggiImmagine(files, folder.Path() / "NONE.MVN"));
}

TEST(Image, AFileIsTakenByItsNameAndItsSizeAlone) {
    support::TemporaryFolder folder;
    platform::real::RealFiles files;
    using memory::ImageProblem;
    struct Row {
        const char* name;
        std::size_t size;
        ImageProblem problem;
    };
    for (const Row& row : {Row{"A.MVN", 4352, ImageProblem::None}, Row{"a.mvn", 4352, ImageProblem::None},
                           Row{"A.B.Mvn", 4352, ImageProblem::None}, Row{"A.MVN", 4351, ImageProblem::WrongSize},
                           Row{"A.MVN", 4353, ImageProblem::WrongSize}, Row{"A.MVN", 0, ImageProblem::WrongSize},
                           Row{"A.MVB", 4352, ImageProblem::WrongName}, Row{"A.MVN.TXT", 4352, ImageProblem::WrongName},
                           Row{"AMVN", 4352, ImageProblem::WrongName}, Row{".MVN", 4352, ImageProblem::WrongName}}) {
        const auto file = folder.Path() / row.name;
        ASSERT_TRUE(files.Write(file, std::string(row.size, 'x')));
        EXPECT_EQ(memory::CheckImageFile(files, file), row.problem) << row.name << row.size;
        ASSERT_TRUE(files.Remove(file));
        EXPECT_EQ(memory::CheckImageFile(files, file), ImageProblem::Missing) << row.name;
    }
    EXPECT_EQ(memory::CheckImageFile(files, folder.Path()), ImageProblem::Missing) << "a folder is no file";
}

TEST(Image, TheInspectorsFileIsMadeOfTheTwoAreasOnlyWhenItIsMissing) {
    support::Simulated s;
    ASSERT_TRUE(s.Connect());
    memory::Memory& room = s.program.memory;
    const auto file = [&s](const char* name) { return s.folder.Path() / name; };
    ASSERT_FALSE(s.files.Exists(file("FILEEEPROM.DAT")));
    ASSERT_TRUE(memory::BuildInspectorFile(room));
    EXPECT_EQ(s.files.Read(file("FILEEEPROM.DAT"), 9999),
              *s.files.Read(file("FILEEEEXT.APP"), 9999) + *s.files.Read(file("FILEEEINT.APP"), 9999));
    EXPECT_EQ(memory::LeggiImmagine(s.files, file("FILEEEPROM.DAT")), s.program.tuning.image);
    s.files.Write(file("FILEEEPROM.DAT"), "of a read");
    EXPECT_TRUE(memory::BuildInspectorFile(room));
    EXPECT_EQ(s.files.Read(file("FILEEEPROM.DAT"), 9999), "of a read");
    s.files.Remove(file("FILEEEPROM.DAT"));
    s.host.files.FailWrites(true);
    EXPECT_FALSE(memory::BuildInspectorFile(room));
    s.host.files.FailWrites(false);
    s.files.Remove(file("FILEEEINT.APP"));
    EXPECT_FALSE(memory::BuildInspectorFile(room));
    EXPECT_FALSE(s.files.Exists(file("FILEEEPROM.DAT"))) << "no half image";
}

TEST(Image, FixUpsGiveOldImagesTheFineDividerAndForgetTheAdaptation) {
    struct Row {
        const char *word, *byte, *after;
    };
    for (const Row& row : {Row{"FFFF", "0A", "03E8"}, Row{"FFFF", "FF", "639C"}, Row{"1234", "0A", "1234"}}) {
        std::string image = CountedImage();
        memory::SetCella(image, 3208, row.word);
        memory::SetCella(image, 3079, row.byte);
        const std::string before = image;
        memory::ApplyFixUps(image);
        EXPECT_EQ(image.substr(2320, 4), row.after);
        EXPECT_EQ(image.substr(3520, 32), std::string(32, '0'));
        EXPECT_EQ(image.substr(0, 2320), before.substr(0, 2320));
        EXPECT_EQ(image.substr(3552), before.substr(3552));
    }
}

TEST(Image, SaysWhetherItIsProgrammedWhoseItIsAndWhen) {
    struct Row {
        const char *marker, *code, *digit, *date;
        bool programmed;
        const char* name;
        bool stamp;
    };
    for (const Row& row : {Row{"0000", "1234567", "8", "241126", true, "1234567_8", false},
                           Row{"FF00", "12345  ", "0", "310299", false, "12345_0", true},
                           Row{"00FF", "       ", "1", "000000", false, "000_0", true},
                           Row{"0000", "12a4567", "1", "290224", true, "000_0", false},
                           Row{"0000", "-12.5  ", "1", "290225", true, "-12.5_1", true},
                           Row{"0000", "12.5.6 ", "1", "290225", true, "000_0", true},
                           Row{"0000", "1234567", "x", "0101\xFF\xFF", true, "000_0", true}}) {
        std::string image = CountedImage();
        memory::SetCella(image, 3072, row.marker);
        SetText(image, 4016, row.code);
        SetText(image, 4062, row.digit);
        SetText(image, 4074, row.date);
        const memory::ImageInfo info = memory::ReadImageInfo(image, Today);
        EXPECT_EQ(info.programmed, row.programmed) << row.marker;
        EXPECT_EQ(info.CodiceAcq, row.name);
        EXPECT_EQ(info.ScriviData, row.stamp) << row.date;
    }
    EXPECT_EQ(memory::DateStamp(Today), "323431313236");
}

TEST(Names, NothingLeavesItsFolder) {
    for (const char* bad :
         {"", " ", "..", ".", "a/b", "a\\b", "C:", "NUL", "com1", "LPT9.txt", "x.", "y ", "a\tb", "a*", "\"q\""}) {
        EXPECT_FALSE(memory::SafeName(bad)) << bad;
    }
    EXPECT_EQ(memory::ArchiveImagePath("p", " FIAT ", "PUNTO 1.2", "prova")->generic_string(),
              "p/ARCHIVI/EEPROM/FIAT/PUNTO 1.2/prova.MVN");
    EXPECT_FALSE(memory::ArchiveImagePath("p", "..", "M", "F"));
    EXPECT_FALSE(memory::ArchiveImagePath("p", "M", "M", "  "));
}

}  // namespace
