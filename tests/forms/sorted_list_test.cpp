// How a list keeps its rows in order, whatever the window is made of.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>

#include "automation/failure.h"
#include "tests/forms/support/forms_test.h"

namespace forms_test {
namespace {

using automation::Text;
using automation::TextView;
using testing::ElementsAre;

struct SortedList : FormsTest {};

TEST_F(SortedList, KeepsItsOrderWithoutRegardToCase) {
    for (const TextView name : {u"banana", u"Cherry", u"apple"}) list().add(name);
    list().select(1);
    list().sort_order(0);
    list().sort_key(0);
    EXPECT_THAT(names(list()), ElementsAre("banana", "Cherry", "apple"));
    list().sorted(true);
    EXPECT_THAT(names(list()), ElementsAre("apple", "banana", "Cherry"));
    EXPECT_EQ(list().selected(), 2) << "the row stays selected, wherever it goes";
    EXPECT_EQ(list().add(u"Blueberry"), 2);
    list().sort_order(1);
    EXPECT_EQ(list().sort_order(), 1);
    EXPECT_THAT(names(list()), ElementsAre("Cherry", "Blueberry", "banana", "apple"));
    list().sorted(false);
    EXPECT_EQ(list().add(u"zucchini"), 4);
}

TEST_F(SortedList, SortsByAnyColumn) {
    for (const TextView city : {u"Ulm", u"Bonn", u"Aachen"}) list().text(list().add(u"x"), 1, city);
    list().sort_key(1);
    list().sorted(true);
    EXPECT_THAT(names(list(), 1), ElementsAre("Aachen", "Bonn", "Ulm"));
    EXPECT_EQ(list().add(u"y"), 0) << "its city is empty as yet";
    EXPECT_EQ(list().text(0, 1, u"Celle"), 2) << "now it has one";
    EXPECT_THAT(names(list(), 1), ElementsAre("Aachen", "Bonn", "Celle", "Ulm"));
    EXPECT_THAT(names(list()), ElementsAre("x", "x", "y", "x"));
    EXPECT_EQ(list().text(2, 0, u"a"), 2) << "it isn't sorted by its names";
}

TEST_F(SortedList, PutsAWholeRowToItsPlaceAtOnce) {
    const auto add = [&](const Text& name, const Text& city) {
        const std::array<Text, 2> cells{name, city};
        return list().add(cells);
    };
    list().sort_key(1);
    list().sorted(true);
    EXPECT_EQ(add(u"1", u"Ulm"), 0);
    EXPECT_EQ(add(u"2", u"Aachen"), 0);
    EXPECT_EQ(add(u"3", u"Bonn"), 1);
    list().sort_order(1);
    EXPECT_EQ(add(u"4", u"Celle"), 1);
    EXPECT_THAT(names(list()), ElementsAre("1", "4", "3", "2"));
    EXPECT_EQ(list().text(0, 2), u"") << "what isn't given is empty";
    const std::array<Text, 4> too_many;
    EXPECT_THROW(list().add(too_many), automation::Failure);
    EXPECT_EQ(list().count(), 4);
}

TEST_F(SortedList, LeavesARowThatMovesSelected) {
    for (const TextView name : {u"apple", u"banana", u"cherry"}) list().add(name);
    list().sorted(true);
    list().select(0);
    EXPECT_EQ(list().text(0, 0, u"damson"), 2);
    EXPECT_EQ(list().selected(), 2);
    EXPECT_EQ(list().text(2, 0, u"date"), 2) << "its place is the same";
    EXPECT_THAT(names(list()), ElementsAre("banana", "cherry", "date"));
}

TEST_F(SortedList, SortsRowsAsWordsAre) {
    const std::vector<Text> sorted = {u"& Sons",   u"1st Street",  u"9 Mills", u"Aal",     u"\u00C4hre",
                                      u"anton",    u"Antonia",     u"coop",    u"co-op",   u"Corn",
                                      u"Mull Ltd", u"M\u00FCller", u"Obern",   u"O'Brien", u"Ocker",
                                      u"Zoe",      u"Zo\u00EB",    u"Zoff"};
    std::vector<Text> mixed = sorted;
    std::ranges::reverse(mixed);
    std::rotate(mixed.begin(), mixed.begin() + 5, mixed.end());
    list().sorted(true);
    for (const Text& word : mixed) list().add(word);
    std::vector<std::string> expected;
    std::ranges::transform(sorted, std::back_inserter(expected),
                           [](const Text& word) { return automation::to_utf8(word); });
    EXPECT_EQ(names(list()), expected);
    list().sort_order(1);
    std::ranges::reverse(expected);
    EXPECT_EQ(names(list()), expected);
}

TEST_F(SortedList, SortsByAComparisonThatLooksAtTheListAndNeverAnswersLess) {
    for (const TextView name : {u"3", u"1", u"2", u"5", u"4"}) list().text(list().add(u"row"), 1, name);
    list().sort_rows([&](std::intptr_t first, std::intptr_t second) {
        const Text left = list().text(list().find(first), 1), right = list().text(list().find(second), 1);
        return left < right ? 0 : left == right ? 1 : 2;
    });
    EXPECT_THAT(names(list(), 1), ElementsAre("1", "2", "3", "4", "5"));
    EXPECT_EQ(list().find(4711), -1);
}

TEST_F(SortedList, LetsAFailureOfItsComparisonTravelToTheLogic) {
    for (const TextView name : {u"3", u"1", u"2"}) list().add(name);
    EXPECT_THROW(list().sort_rows([](std::intptr_t, std::intptr_t) -> int {
        throw automation::Failure(automation::result::type_mismatch);
    }),
                 automation::Failure);
    EXPECT_EQ(list().count(), 3);
}

}  // namespace
}  // namespace forms_test
