// Each expression of the host's documentation finds what its page says. docs/filters.md is the same table for
// those who read.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "desk/base/desk.h"
#include "desk/outlook/items.h"
#include "tests/support/idle_surroundings.h"
#include "tests/unit/support/documented_filters.h"
#include "tests/unit/support/store_support.h"

namespace {

using automation::Object;
using filter_tests::Documented;

struct EasternSurroundings : desk_tests::IdleSurroundings {
    automation::Date now() override { return automation::to_date({2026, 3, 4, 9, 15, 0}); }
    automation::Date to_utc(automation::Date local) override {
        constexpr double hours_of_day = 24;
        return {local.days - 2 / hours_of_day};
    }
};

/// A desk with the documented items, and what its filters find of them.
class Documentation {
  public:
    Documentation() {
        std::unique_ptr<desk::Store> store = desk::Store::open(":memory:");
        desk::FolderRow root = store_tests::folder_named(u"Mailbox");
        root.store_uid = u"00000000000000000000000000000001";
        const desk::RowId mailbox = store->add_folder(root);
        for (const filter_tests::Shelf& shelf : filter_tests::shelves()) {
            desk::FolderRow row =
                store_tests::folder_named(automation::from_utf8(shelf.name).c_str(), mailbox);
            folders_[shelf.name] = store->add_folder(row);
            for (const desk::ItemData& item : shelf.items) store->add_item(folders_[shelf.name], item);
        }
        desk::Options options;
        options.instant_search = true;
        desk_ = std::make_unique<desk::Desk>(surroundings_, std::move(store), options);
    }

    std::string answer(const Documented& row) const {
        const auto items = std::make_shared<desk::Items>(*desk_, folders_.at(row.shelf));
        try {
            const Object found = items->restricted(row.expression);
            std::string all;
            const std::int32_t count = found.get(u"Count").to_integer();
            for (std::int32_t i = 1; i <= count; ++i) {
                const Object item = found.call(u"Item", {i}).to_object();
                all += (all.empty() ? "" : "; ") + automation::to_utf8(item.get(u"Subject").to_text());
            }
            return all.empty() ? "nothing" : all;
        } catch (const automation::Failure& failure) {
            EXPECT_EQ(failure.number(), automation::result::invalid_argument) << failure.what();
            return "an error";
        }
    }

  private:
    EasternSurroundings surroundings_;
    std::map<std::string, desk::RowId> folders_;
    std::unique_ptr<desk::Desk> desk_;
};

TEST(FilterDocumentation, IsWhatTheDeskAnswers) {
    const Documentation documentation;
    for (const Documented& row : filter_tests::documented()) {
        EXPECT_EQ(documentation.answer(row), row.desk ? row.desk : row.found)
            << automation::to_utf8(row.expression) << "\n(" << row.page << ")";
    }
}

/// A cell of a table in Markdown.
std::string cell(const std::string& text) {
    std::string shown;
    for (const char letter : text) shown += letter == '|' ? std::string("\\|") : std::string(1, letter);
    return shown;
}

std::string table(const Documentation& documentation) {
    std::string lines;
    for (const filter_tests::Shelf& shelf : filter_tests::shelves()) {
        lines += "\n## Folder \"" + shelf.name + "\"\n\n| Expression | Documented | Page | The desk |\n" +
                 "| --- | --- | --- | --- |\n";
        for (const Documented& row : filter_tests::documented()) {
            if (row.shelf != shelf.name) continue;
            const std::string answer = documentation.answer(row);
            lines += "| `" + cell(automation::to_utf8(row.expression)) + "` | " + cell(row.found) + " | " +
                     row.page + " | " + (answer == row.found ? "the same" : cell(answer)) + " |\n";
        }
    }
    return lines;
}

TEST(FilterDocumentation, IsInTheDocument) {
    std::ifstream file(std::filesystem::path(TARNWELL_DATA_FOLDER) / "../docs/filters.md");
    std::ostringstream document;
    document << file.rdbuf();
    const std::string expected = table(Documentation());
    EXPECT_TRUE(document.str().ends_with(expected)) << "docs/filters.md ends with other lines than\n"
                                                    << expected;
}

}  // namespace
