#include "automation/com/com_object.h"
#include "tests/windows/support/com_sample.h"
#include "tests/windows/support/fault_check.h"

namespace windows::testing {
namespace {

using Calls = Border;

TEST_F(Calls, ReachMembersByNameInAnyCase) {
    const Object sample = seen(std::make_shared<Sample>());
    sample.put(u"value", 5);
    EXPECT_EQ(sample.get(u"VALUE"), Value(5));
    EXPECT_EQ(sample.call(u"double", {21}), Value(42));
    EXPECT_EQ(sample.get(u"Double", {4}), Value(8)) << "a method may be read";
    EXPECT_EQ(sample.call(u"Value"), Value(5)) << "a property may be called";
}

TEST_F(Calls, ArgumentsKeepTheirOrder) {
    const Object sample = seen(std::make_shared<Sample>());
    EXPECT_EQ(sample.call(u"Join", {u"a", u"b", u"c"}), Value(u"a;b;c;"));
    EXPECT_EQ(sample.call(u"Join", {u"a"}), Value(u"a;-;-;"));
    EXPECT_EQ(sample.call(u"Join", {u"a", automation::Missing{}, u"c"}), Value(u"a;-;c;"));
}

TEST_F(Calls, NamedArgumentsFindTheirPlaces) {
    const Object sample = seen(std::make_shared<Sample>());
    Request request{.access = Access::call,
                    .member = u"Join",
                    .arguments = {u"a"},
                    .named = {{u"Third", Value(u"c")}, {u"second", Value(u"b")}}};
    EXPECT_EQ(sample.invoke(request), Value(u"a;b;c;"));

    Request unknown{
        .access = Access::call, .member = u"Join", .arguments = {u"a"}, .named = {{u"Fourth", Value(1)}}};
    EXPECT_EQ(failure_number([&] { sample.invoke(unknown); }), automation::result::unknown_name);
}

TEST_F(Calls, ArgumentsByReferenceComeBackChanged) {
    const Object sample = seen(std::make_shared<Sample>());
    Request both{
        .access = Access::call, .member = u"Swap", .arguments = {u"left", true}, .by_reference = 0b11};
    EXPECT_EQ(failure_number([&] { sample.invoke(both); }), automation::result::type_mismatch)
        << "a boolean's place takes no text";

    Request texts{.access = Access::call, .member = u"Swap", .arguments = {u"left", 2}, .by_reference = 0b11};
    sample.invoke(texts);
    EXPECT_EQ(texts.arguments, (std::vector<Value>{2, u"left"}));

    Request one{.access = Access::call, .member = u"Swap", .arguments = {u"left", 2}, .by_reference = 0b01};
    sample.invoke(one);
    EXPECT_EQ(one.arguments, (std::vector<Value>{2, 2})) << "what goes by value stays";
}

TEST_F(Calls, TheDefaultMemberIsReachedByItsId) {
    auto target = std::make_shared<Sample>();
    target->value = u"the value";
    const Object sample = seen(target);
    Request plain{.access = Access::get, .member = {}, .id = automation::default_member};
    EXPECT_EQ(sample.invoke(plain), Value(u"the value"));
    Request indexed{.access = Access::get, .member = {}, .id = automation::default_member, .arguments = {3}};
    EXPECT_EQ(sample.invoke(indexed), Value(u"at 3"));
}

TEST_F(Calls, FailuresArriveWithNumberAndText) {
    const Object sample = seen(std::make_shared<Sample>());
    for (const std::int32_t number :
         {automation::result::fail, automation::result::not_found, automation::result::access_denied}) {
        try {
            sample.call(u"Fail", {number});
            ADD_FAILURE() << "no failure";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number(), number);
            EXPECT_EQ(failure.description(), u"Refused on purpose");
        }
    }
}

TEST_F(Calls, TheCodesOfLateBindingArriveAsTheyAre) {
    const Object sample = seen(std::make_shared<Sample>());
    const std::pair<std::function<void()>, std::int32_t> cases[] = {
        {[&] { sample.call(u"Nowhere"); }, automation::result::unknown_name},
        {[&] { sample.put(u"Count", 1); }, automation::result::member_not_found},
        {[&] { sample.call(u"Join"); }, automation::result::bad_count},
        {[&] {
             sample.call(u"Double", {1, 2});
         },
         automation::result::bad_count},
        {[&] { sample.call(u"Double", {u"x"}); }, automation::result::type_mismatch},
        {[&] { sample.call(u"Item", {1}); }, automation::result::bad_index},
        {[&] { sample.call(u"Fail", {automation::result::overflow}); }, automation::result::overflow},
        {[&] { sample.call(u"Break", {u"memory"}); }, E_OUTOFMEMORY},
        {[&] { sample.call(u"Break", {u"anything"}); }, E_UNEXPECTED},
    };
    for (const auto& [action, number] : cases) EXPECT_EQ(failure_number(action), number);
    expect_faults(2);  // the two breaks
}

TEST_F(Calls, AMissingMemberIsNamedInTheFailure) {
    const Object sample = seen(std::make_shared<Sample>());
    try {
        sample.get(u"Nowhere");
        ADD_FAILURE() << "no failure";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.description(), u"Nowhere");
    }
}

TEST_F(Calls, ObjectsAreAssigned) {
    auto target = std::make_shared<Sample>();
    auto other = std::make_shared<Sample>();
    const Object sample = seen(target);
    sample.put(u"Value", Value(seen(other)));
    EXPECT_EQ(target->value.to_object().target(), other) << "what comes home is the object itself";
    sample.put(u"Value", Value(Object()));
    EXPECT_FALSE(target->value.to_object());
}

/// Takes an object in one way of assignment only, as type libraries declare it.
class Picky : public ComObject<IDispatch> {
  public:
    Picky(Module& module, WORD way) : ComObject(module), way_(way) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) noexcept override {
        *ids = 5;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        ++calls;
        return flags == way_ ? S_OK : DISP_E_MEMBERNOTFOUND;
    }
    int calls = 0;

  private:
    void* query(REFIID iid) noexcept override {
        return iid == IID_IUnknown || iid == IID_IDispatch ? static_cast<IDispatch*>(this) : nullptr;
    }
    WORD way_;
};

TEST_F(Calls, FindOutHowAMemberTakesObjectsAndRememberIt) {
    constexpr WORD by_value = DISPATCH_PROPERTYPUT, by_reference = DISPATCH_PROPERTYPUTREF;
    for (const WORD way : {by_value, by_reference}) {
        auto* picky = new Picky(module, way);
        const auto owner = ComPtr<IDispatch>::attach(picky);
        const Object object = outside->adapt(picky);
        object.put(u"Member", Value(Object()));
        picky->calls = 0;
        object.put(u"Member", Value(Object()));
        EXPECT_EQ(picky->calls, 1);
    }
}

TEST_F(Calls, AMemberThatTakesNoObjectsIsNotFound) {
    const auto picky = ComPtr<IDispatch>::attach(new Picky(module, 0));
    const Object object = outside->adapt(picky.get());
    EXPECT_EQ(failure_number([&] { object.put(u"Member", Value(Object())); }),
              automation::result::member_not_found);
}

TEST_F(Calls, ErrorNumbersOf16BitsHaveTheirPlace) {
    const Object sample = seen(std::make_shared<Sample>());
    EXPECT_EQ(failure_number([&] { sample.call(u"Fail", {424}); }), automation::result::object_required);
}

TEST_F(Calls, AskForAnIdOnceForAllObjectsOfAKind) {
    static constexpr automation::Kind kind{"sample"};
    for (int i = 0; i < 5; ++i) {
        const Object sample(seen(std::make_shared<Sample>()).target(), &kind);
        EXPECT_EQ(sample.call(u"Double", {i}), Value(2 * i));
        EXPECT_EQ(sample.call(u"DOUBLE", {i}), Value(2 * i));
    }
    EXPECT_EQ(counter->calls(u"Double").identified, 1U);
    EXPECT_EQ(counter->calls(u"Double").invoked, 10U);
    EXPECT_EQ(counter->calls_in_all().identified, 1U);
}

TEST_F(Calls, AskForAnIdOncePerObjectWithoutAKind) {
    for (int i = 0; i < 3; ++i) {
        const Object sample = seen(std::make_shared<Sample>());
        sample.call(u"Double", {1});
        sample.call(u"Double", {2});
    }
    EXPECT_EQ(counter->calls(u"Double").identified, 3U);
    EXPECT_EQ(counter->calls(u"Double").invoked, 6U);
    counter->reset_calls();
    EXPECT_EQ(counter->calls_in_all().invoked, 0U);
}

TEST_F(Calls, AnObjectWithIdsOfItsOwnIsAskedOnce) {
    static constexpr automation::Kind kind{"echo"};
    const Object first(seen(std::make_shared<Sample>()).target(), &kind);
    const Object later(seen(std::make_shared<LaterSample>()).target(), &kind);
    EXPECT_EQ(first.call(u"Echo", {u"x"}), Value(u"x"));
    EXPECT_EQ(later.call(u"Echo", {u"x"}), Value(u"later x"));
    counter->reset_calls();
    EXPECT_EQ(later.call(u"Echo", {u"y"}), Value(u"later y"));
    EXPECT_EQ(first.call(u"Echo", {u"y"}), Value(u"y"));
    EXPECT_EQ(counter->calls_in_all().identified, 0U) << "each is known now";
    EXPECT_EQ(counter->calls_in_all().invoked, 2U);
}

TEST_F(Calls, AMemberThatAnObjectOfTheKindLacksIsUnknown) {
    static constexpr automation::Kind kind{"double"};
    const Object first(seen(std::make_shared<Sample>()).target(), &kind);
    const Object later(seen(std::make_shared<LaterSample>()).target(), &kind);
    first.call(u"Double", {1});
    EXPECT_EQ(failure_number([&] { later.call(u"Double", {1}); }), automation::result::unknown_name);
}

TEST_F(Calls, IdsOfMembersAndParametersCanBeAskedFor) {
    const Object sample = seen(std::make_shared<Sample>());
    const automation::Text parameters[] = {u"Third", u"Tenth", u"First"};
    const std::optional<automation::MemberIds> ids = sample.identify(u"Join", parameters);
    ASSERT_TRUE(ids);
    EXPECT_NE(ids->id, automation::no_id);
    EXPECT_EQ(ids->places, (std::vector<std::int32_t>{2, automation::no_id, 0}));
    EXPECT_FALSE(sample.identify(u"Split", parameters));
}

}  // namespace
}  // namespace windows::testing
