// A long session: as many mails as a busy person reads in a year, one after the other.
#include <malloc.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "tests/native/native_world.h"
#include "tests/world/many_mails.h"
#include "tests/world/people.h"

namespace addin_tests {
namespace {

using host::outlook::Item;
using native::NativeWorld;

#ifdef __SANITIZE_ADDRESS__
// There a mail takes five times as long. And freed memory is not given to the next who asks but kept for a
// while, so that its use is noticed: how much is resident tells nothing of leaks, which are looked for at the
// end of the program anyway. What is held is still counted.
constexpr int mail_count = 2'000;
constexpr bool memory_is_reused = false;
#else
constexpr int mail_count = 10'000;
constexpr bool memory_is_reused = true;
#endif

/// By then every cache is filled and every table has been asked for.
constexpr int warm_up = 500;
constexpr double largest_growth = 1.05;

/// The desk's list of its items grows with each mail, by some dozen bytes; an object that stays behind is
/// larger.
constexpr double largest_growth_per_mail = 200;  // bytes

/// Bytes of this process that are in memory.
double resident_bytes() {
    std::ifstream file("/proc/self/statm");
    long pages_in_all = 0, pages_resident = 0;
    file >> pages_in_all >> pages_resident;
    return static_cast<double>(pages_resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// Bytes that this program has allocated, beside the database's own, which are its cache for the most part.
double allocated_bytes() {
    return static_cast<double>(mallinfo2().uordblks) - static_cast<double>(sqlite3_memory_used());
}

/// Has the database's cache full from the start, as it is with a database of some years. Else a long session
/// would only show how it fills.
void fill_cache(NativeWorld& world) {
    constexpr std::size_t items = 96, size = 1U << 20U;  // more than the cache takes
    constexpr std::int32_t deleted_items = 3;
    desk::ItemData large;
    large.message_class = u"IPM.Note";
    large.fields[u"Body"] = automation::Value(automation::Text(size, u'x'));
    for (std::size_t i = 0; i < items; ++i) {
        world.model().store().add_item(world.model().default_folder(deleted_items), large);
    }
}

std::int32_t held(NativeWorld& world) {
    std::int32_t all = 0;
    for (const desk::LiveCount& count : world.boundary().live()) all += count.count;
    return all;
}

TEST(Soak, EveryMailOfALongSessionIsDecidedRightAndNothingStaysBehind) {
    NativeWorld world({});
    world.family(u"EmailAutoFile", u"1");
    acceptance::add_contact(world);

    if (memory_is_reused) fill_cache(world);

    // the file of each mail is a new one: to write over another, some file systems wait for the disk
    const automation::Text file = world.write_file("delivered.eml", {});

    std::vector<automation::Text> filed;
    std::int32_t held_then = 0;
    double resident_then = 0, allocated_then = 0;
    for (int i = 0; i < mail_count; ++i) {
        if (i == warm_up) {
            held_then = held(world);
            resident_then = resident_bytes();
            allocated_then = allocated_bytes();
        }
        world.remove_file(file);
        const acceptance::MailOfMany& kind = acceptance::mail_of_many(i);
        const Item mail = acceptance::read_mail(
            world, {.from = kind.from, .subject = "Mail " + std::to_string(i), .more = kind.more});
        world.settle();
        ASSERT_EQ(acceptance::is_marked(mail), kind.is_filed) << "mail " << i << " from " << kind.from;
        if (kind.is_filed) filed.push_back(mail.Subject());
        world.boundary().forget_calls();
    }
    EXPECT_EQ(held(world), held_then);
    if (memory_is_reused) {
        EXPECT_LE(resident_bytes(), resident_then * largest_growth);
        EXPECT_LE(allocated_bytes(), allocated_then + (mail_count - warm_up) * largest_growth_per_mail);
    }

    // a note for each, in the order of their reading, and none twice
    std::vector<automation::Text> notes;
    const host::outlook::Items items = world.below(u"Email").Items();
    const std::int32_t count = items.Count();
    for (std::int32_t i = 1; i <= count; ++i) notes.push_back(items.Item(i).Subject());
    EXPECT_TRUE(notes == filed) << notes.size() << " notes of " << filed.size() << " mails";
    EXPECT_EQ(acceptance::count_in(world, u"Notes"), 0);
}

}  // namespace
}  // namespace addin_tests
