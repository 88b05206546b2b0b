// Texts and arrays that cross the border belong to COM's own allocator, which tells what was taken and given
// back.
#include <functional>

#include "automation/com/variant.h"
#include "tests/windows/support/com_sample.h"

extern "C" void WINAPI SetOaNoCache();  // freed texts are kept for reuse otherwise

namespace windows::testing {
namespace {

/// Counts the blocks of COM's allocator that are in use. There is one for the whole program: COM keeps it as
/// long as a block that it has seen is in use.
class BlockCounter : public IMallocSpy {
  public:
    static int blocks() {
        static BlockCounter* const counter = [] {
            auto* made = new BlockCounter;
            EXPECT_EQ(CoRegisterMallocSpy(made), S_OK);
            return made;
        }();
        return counter->blocks_;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) override {
        *answer = iid == IID_IUnknown || iid == IID_IMallocSpy ? this : nullptr;
        return *answer ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* block) override {
        if (block) ++blocks_;
        return block;
    }
    void* STDMETHODCALLTYPE PreFree(void* block, WINBOOL) override {
        if (block) --blocks_;
        return block;
    }
    void STDMETHODCALLTYPE PostFree(WINBOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** same, WINBOOL) override {
        *same = block;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, WINBOOL) override { return block; }
    void* STDMETHODCALLTYPE PreGetSize(void* block, WINBOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, WINBOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, WINBOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, WINBOOL, int answer) override { return answer; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

  private:
    int blocks_ = 0;
};

class Memory : public Border {
  protected:
    Memory() { SetOaNoCache(); }
};

TEST_F(Memory, TheCounterSeesATextThatIsKept) {
    const int before = BlockCounter::blocks();
    const BSTR text = SysAllocString(L"kept");
    EXPECT_EQ(BlockCounter::blocks(), before + 1);
    SysFreeString(text);
    EXPECT_EQ(BlockCounter::blocks(), before);
}

TEST_F(Memory, IsGivenBackAfterEveryKindOfCall) {
    auto target = std::make_shared<Sample>();
    const Object sample = seen(target);
    automation::Sink sink;
    sink.connect(sample_interface, sample,
                 {{u"Sending", [](std::span<Value> arguments) { arguments[1] = u"another text"; }},
                  {u"Closed", [](std::span<Value>) { throw Failure(automation::result::fail, u"No"); }}});
    const Value array = automation::Array::of({u"one", automation::Array::of({u"two"}), 3});
    const auto ignoring_failure = [](const std::function<void()>& action) {
        try {
            action();
        } catch (const Failure&) {
        }
    };
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"texts",
         [&] {
             sample.call(u"Join", {u"a", u"b", u"c"});
         }},
        {"arrays", [&] { sample.call(u"Echo", {array}); }},
        {"objects", [&] { sample.call(u"Echo", {Value(sample)}); }},
        {"a put", [&] { sample.put(u"Value", u"text"); }},
        {"named arguments",
         [&] {
             Request request{.access = Access::call, .member = u"Join", .named = {{u"First", Value(u"a")}}};
             sample.invoke(request);
         }},
        {"references",
         [&] {
             Request request{
                 .access = Access::call, .member = u"Swap", .arguments = {u"a", array}, .by_reference = 0b11};
             sample.invoke(request);
         }},
        {"a text by reference",
         [&] {
             BSTR text = SysAllocString(L"left");
             Variant other = to_variant(u"right", *outside);
             VARIANT row[2];
             VariantInit(&row[0]);
             row[0].vt = VT_BYREF | VT_VARIANT;
             row[0].pvarVal = &other;
             VariantInit(&row[1]);
             row[1].vt = VT_BYREF | VT_BSTR;
             row[1].pbstrVal = &text;
             DISPPARAMS parameters{row, nullptr, 2, 0};
             wchar_t swap[] = L"Swap";
             wchar_t* name = swap;
             DISPID id = DISPID_UNKNOWN;
             const auto bridge = inside->bridge(target);
             EXPECT_EQ(bridge->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), S_OK);
             EXPECT_EQ(
                 bridge->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
                 S_OK);
             SysFreeString(text);
         }},
        {"failures", [&] { ignoring_failure([&] { sample.call(u"Fail", {automation::result::fail}); }); }},
        {"wrong types", [&] { ignoring_failure([&] { sample.call(u"Double", {u"text"}); }); }},
        {"unknown members", [&] { ignoring_failure([&] { sample.call(u"Nowhere", {u"text"}); }); }},
        {"events",
         [&] {
             std::vector<Value> arguments{u"mail", u"text"};
             target->raise(2, arguments, 0b10);
         }},
        {"failing handlers",
         [&] {
             std::vector<Value> arguments{u"mail"};
             ignoring_failure([&] { target->raise(3, arguments); });
         }},
    };
    for (const auto& [what, call] : calls) {
        SCOPED_TRACE(what);
        call();  // what is kept for good is made now
        const int before = BlockCounter::blocks();
        call();
        EXPECT_EQ(BlockCounter::blocks(), before);
    }
}

}  // namespace
}  // namespace windows::testing
