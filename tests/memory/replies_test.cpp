#include <gtest/gtest.h>

#include "link/transaction.h"
#include "memory/flows.h"
#include "memory/image.h"
#include "support/scripted_unit.h"

namespace {

using eculink::Idle;
using memory::ByteCella;
using memory::Flow;
using support::ScriptedUnit;

// A reply may hold any byte. One that ends lines in a file must not move the cells behind it.
TEST(Replies, ALineEndInAReplySpoilsItsOwnByteAlone) {
    struct Row {
        const char* name;
        Flow flow;
        int firstBlock;  // state that reads the first area
        const char* file;
    };
    for (const char spoilt : {'\n', '\r'}) {
        for (const std::size_t at : {std::size_t{0}, std::size_t{31}}) {
            for (const Row& row : {Row{"recognition", Flow::Connection, 80, "FILEEEEXT.APP"},
                                   Row{"inspector", Flow::Inspector, 70, "FILEEEPROM.DAT"},
                                   Row{"archive", Flow::Archive, 95, "A.MVN"}}) {
                ScriptedUnit u;
                if (row.flow == Flow::Connection) {
                    ASSERT_TRUE(u.Start());
                    u.Take(support::LiveFrame().Long());
                    ASSERT_TRUE(u.Step()) << "identified";
                } else {
                    ASSERT_TRUE(u.Connect());
                }
                memory::Memory& room = u.program->memory;
                if (row.flow == Flow::Inspector) memory::StartInspectorRead(room);
                if (row.flow == Flow::Archive) memory::StartArchiveRead(room, u.folder.Path() / row.file);
                ASSERT_EQ(u.State().StatoCmd, row.firstBlock) << row.name;
                ASSERT_TRUE(u.Step());
                std::string reply = u.Answer(u.Sent());
                reply.at(2 + at) = spoilt;
                u.Take(reply);
                ASSERT_TRUE(u.Converse([&] { return u.State().StatoCmd == Idle; })) << row.name;
                const int block = row.flow == Flow::Archive ? 16 : 32;
                const int bad = block + static_cast<int>(at) / 2;
                const std::string content = u.FileContent(row.file).value();
                EXPECT_EQ(content.size(), row.flow == Flow::Connection ? 34U * 64 : memory::ImageFileSize) << row.name;
                const std::string image =
                    row.flow == Flow::Connection ? u.program->tuning.image : memory::JoinLines(content);
                for (const int address : {bad - 1, bad + 1, 200, 1023, 3072, 4095}) {
                    EXPECT_EQ(ByteCella(image, address, 1), ByteCella(u.image, address, 1)) << row.name << address;
                }
                EXPECT_EQ(ByteCella(image, bad, 1), 255U) << row.name;
            }
        }
    }
}

// Damage within a line of an area file stays in that line as well, whoever did it.
TEST(Replies, AreaFilesOfTheirWholeSizeAreReadByPlace) {
    const std::string line(32, '1');
    std::string content;
    for (int i = 0; i < memory::AreaLines; ++i) content += line + "\r\n";
    content[40] = '\n';
    const std::string digits = memory::AreaDigitsOf(content);
    ASSERT_EQ(digits.size(), 2048U);
    EXPECT_EQ(ByteCella(digits, 19, 1), 255U);
    EXPECT_EQ(ByteCella(digits, 20, 4), 0x11111111U);
    EXPECT_EQ(ByteCella(digits, 1020, 4), 0x11111111U);
}

}  // namespace
