// Nothing that fails inside of a window travels out into the system, which called it. What fails here is
// memory, at any moment.
#include <gtest/gtest.h>

#include <new>

#include "automation/com/fault_watch.h"
#include "forms/windows/modal_show.h"
#include "tests/forms/support/gallery.h"
#include "tests/windows/support/fault_check.h"
#include "tests/windows/support/forms_stage.h"

namespace {

/// Has the n-th allocation from now on fail, while it lives.
class FailingAllocation {
  public:
    explicit FailingAllocation(long number) { left() = number; }
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    ~FailingAllocation() { left() = 0; }

    static bool came() { return left() == 0; }
    static bool is_now() { return left() > 0 && --left() == 0; }

  private:
    /// The operators that take memory are handed nothing that could hold it.
    static long& left() {
        static long allocations = 0;
        return allocations;
    }
};

}  // namespace

void* operator new(std::size_t size) {
    void* const block = FailingAllocation::is_now() ? nullptr : HeapAlloc(GetProcessHeap(), 0, size);
    if (!block) throw std::bad_alloc();
    return block;
}
void operator delete(void* block) noexcept { HeapFree(GetProcessHeap(), 0, block); }
void operator delete(void* block, std::size_t) noexcept { HeapFree(GetProcessHeap(), 0, block); }

namespace forms_test {
namespace {

TEST(FormsMemory, MayRunOutAtAnyMomentOfWhatTheSystemTells) {
    const struct {
        const char* name;
        automation::TextView control;  // empty: the window itself
        void (*tell)(HWND target);
    } cases[] = {
        {"a character", u"words", [](HWND target) { SendMessageW(target, WM_CHAR, 'a', 0); }},
        {"a close box", u"", [](HWND target) { SendMessageW(target, WM_CLOSE, 0, 0); }},
        {"the windows that wait for a modal one", u"",
         [](HWND target) { const windows::ModalShow shown(target); }},
    };
    const std::uint32_t faults = windows::FaultWatch::count();
    constexpr int more_than_any = 200;
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        WindowsStage stage;
        bool came = true;
        int number = 1;
        for (; came && number < more_than_any; ++number) {
            const auto form = std::make_shared<Noted>(stage.engine(), gallery);
            form->show();
            pump();
            const HWND window = find_window(gallery_caption);
            const HWND target = one.control.empty() ? window : find_control(window, one.control);
            const FailingAllocation failing(number);
            EXPECT_NO_THROW(one.tell(target)) << "allocation " << number;
            came = FailingAllocation::came();
        }
        EXPECT_FALSE(came) << "the test stops before the last allocation";
        EXPECT_GT(number, 2) << "nothing failed";
    }
    const std::uint32_t told = windows::FaultWatch::count() - faults;
    EXPECT_GT(told, 0U) << "what fails so is told";
    windows::testing::expect_faults(told);
}

}  // namespace
}  // namespace forms_test
