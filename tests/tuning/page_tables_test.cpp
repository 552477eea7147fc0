#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "support/simulated.h"
#include "tuning/imposta_pages.h"
#include "tuning/messap_pages.h"

namespace {

using tuning::MemoriaCount;
using tuning::PageRow;
using tuning::ParameterRows;

struct Dialog {
    const char* section;
    std::span<const PageRow> pages;
};
std::vector<Dialog> Dialogs() {
    return {{"MESSAP", tuning::MessaPPages()}, {"IMPOSTA", tuning::ImpostaPages()}};
}

std::string NameOf(std::size_t record) {
    return tuning::FullName(ParameterRows[record].name, ParameterRows[record].number);
}

// What a fitter can change anywhere: everything but the axis of the learned map, and two figures that the unit has no
// cell for.
TEST(PageTables, EveryParameterStandsOnAPage) {
    std::set<std::size_t> shown;
    for (const Dialog& dialog : Dialogs()) {
        for (const PageRow& page : dialog.pages) {
            const auto records = tuning::RecordsOf(page);
            EXPECT_EQ(std::set<std::size_t>(records.begin(), records.end()).size(), records.size()) << page.heading;
            shown.insert(records.begin(), records.end());
        }
    }
    for (std::size_t i = 0; i < MemoriaCount; ++i) {
        const tuning::Row& row = ParameterRows[i];
        const bool elsewhere = row.name.empty() || row.EE == tuning::NoAddress || row.name == "RPMZone";
        EXPECT_EQ(shown.count(i), elsewhere ? 0U : 1U) << NameOf(i);
    }
}

TEST(PageTables, EveryCellOfATableIsReadInABlockAndNothingElseIs) {
    for (const PageRow& page : tuning::MessaPPages()) {
        for (const tuning::TableRow& table : page.tables) {
            std::set<int> cells;
            for (const tuning::GridRow& grid : table.grids) {
                for (int i = 0; i < grid.records; ++i) {
                    const tuning::Row& row = ParameterRows[grid.record + static_cast<std::size_t>(i)];
                    ASSERT_EQ(row.name, grid.name) << "the records of a grid follow each other";
                    for (int byte = 0; byte < row.NByte; ++byte) cells.insert(row.EE + byte);
                }
            }
            std::set<int> read;
            for (const tuning::Block& block : table.blocks) {
                EXPECT_LE(block.count, 16);
                for (int byte = 0; byte < block.count; ++byte) read.insert(block.address + byte);
            }
            EXPECT_EQ(read, cells) << table.button;
        }
    }
}

TEST(PageTables, EveryCellOfAGridIsARecordOfItsOwn) {
    for (const PageRow& page : tuning::MessaPPages()) {
        for (const tuning::TableRow& table : page.tables) {
            for (const tuning::GridRow& grid : table.grids) {
                std::set<std::size_t> seen;
                for (int row = 0; row < grid.rows; ++row) {
                    for (int column = 0; column < grid.columns; ++column) seen.insert(grid.RecordAt(row, column));
                }
                seen.erase(MemoriaCount);
                EXPECT_EQ(seen.size(), static_cast<std::size_t>(grid.records)) << grid.name;
                EXPECT_EQ(grid.RecordAt(grid.rows, 0), MemoriaCount);
                EXPECT_EQ(grid.RecordAt(0, grid.columns), MemoriaCount);
                EXPECT_EQ(grid.RecordAt(-1, 0), MemoriaCount);
            }
        }
    }
}

// Two parameters that a page writes never meet in the working memory, unless they are one cell.
TEST(PageTables, NoWorkingCopyIsWrittenForTwoCells) {
    std::map<int, int> owners;  // permanent byte by working byte
    for (const Dialog& dialog : Dialogs()) {
        for (const PageRow& page : dialog.pages) {
            for (const std::size_t number : tuning::RecordsOf(page)) {
                const tuning::Row& row = ParameterRows[number];
                if (row.RAM == tuning::NoWorkingCopy || row.borrowsRAM) continue;
                for (int byte = 0; byte < row.NByte; ++byte) {
                    const auto [owner, first] = owners.emplace(row.RAM + byte, row.EE + byte);
                    EXPECT_EQ(owner->second, row.EE + byte) << NameOf(number) << " at " << row.RAM + byte;
                }
            }
        }
    }
}

TEST(PageTables, EveryTextOfEveryPageStandsInBothLanguages) {
    for (const char* language : {"ITALIANO.LNG", "INGLESE.LNG"}) {
        platform::real::RealFiles files;
        shell::Language texts;
        texts.Load(files, platform::Path(MARLOVENT_DATA) / language);
        const auto has = [&texts, language](std::string_view key, std::string_view section) {
            EXPECT_FALSE(texts.Text(key, section).empty()) << key << " of " << section << " in " << language;
        };
        const auto family = [&has](std::string_view key, int number, std::string_view section) {
            has(std::string(key) + std::to_string(number), section);
        };
        for (const Dialog& dialog : Dialogs()) {
            for (const PageRow& page : dialog.pages) {
                has(page.heading, dialog.section);
                std::set<int> captions;
                for (const tuning::FieldRow& field : page.fields) {
                    family(page.captions, field.caption, dialog.section);
                    EXPECT_TRUE(captions.insert(field.caption).second) << field.name << " shares its row";
                    const int entries = field.IsList() ? ParameterRows[field.record].positions : 0;
                    for (int i = 0; i < entries; ++i) family(field.choices.key, i, field.choices.section);
                    if (field.measure != tuning::Measure::None) has(tuning::MeasureKey(field.measure, true), "MISURE");
                }
                for (const tuning::TableRow& table : page.tables) {
                    for (int i = 0; i < 2; ++i) family(table.captions, i, dialog.section);
                    for (const tuning::GridRow& grid : table.grids) {
                        has(grid.caption, dialog.section);
                        if (!grid.corner.empty()) has(grid.corner, dialog.section);
                        if (grid.heads.empty()) continue;
                        for (int i = 0; i < grid.columns; ++i) family(grid.heads, grid.firstHead + i, dialog.section);
                    }
                }
            }
        }
    }
}

TEST(PageTables, TheUnitOfAFieldFitsWhatItsRecordIsShownAs) {
    for (const Dialog& dialog : Dialogs()) {
        for (const PageRow& page : dialog.pages) {
            for (const tuning::FieldRow& field : page.fields) {
                const tuning::Row& row = ParameterRows[field.record];
                using tuning::Conversion;
                using tuning::Measure;
                const std::string name = NameOf(field.record);
                EXPECT_EQ(field.measure == Measure::StepSpeed, row.conversion == Conversion::Speed) << name;
                EXPECT_EQ(field.measure == Measure::OfSensor,
                          row.conversion == Conversion::CutOffThreshold || row.conversion == Conversion::IdleThreshold)
                    << name;
                EXPECT_EQ(field.IsList(),
                          row.conversion == Conversion::Choice || row.conversion == Conversion::SpeedChoice)
                    << name;
                EXPECT_EQ(field.measure == Measure::Throttle, row.conversion == Conversion::Throttle) << name;
                const bool millibar = field.measure == Measure::Millibar;
                EXPECT_TRUE(millibar || row.conversion != Conversion::Pressure) << name;
            }
        }
    }
}

}  // namespace
