// One face serves the items of all classes. An id that an object of one class gave never reaches an object of
// another, whichever came first.
#include <algorithm>
#include <array>
#include <vector>

#include "addin/host/item_classes.h"
#include "addin/host/outlook.h"
#include "automation/com/com_object.h"
#include "tests/windows/support/com_sample.h"

namespace windows::testing {
namespace {

using host::outlook::ItemClass;
using host::outlook::parting_members;
using host::outlook::PublishedMember;

constexpr auto class_count = static_cast<std::size_t>(ItemClass::count);
constexpr std::int32_t save_id = 0xF048;  // the same in every class

/// The types of the classes as a type library tells them.
class Types {
  public:
    Types() {
        constexpr SYSKIND system = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
        EXPECT_EQ(CreateTypeLib2(system, L"items.tlb", library_.put()), S_OK);
        for (std::size_t i = 0; i < class_count; ++i) {
            const std::wstring name = L"Item" + std::to_wstring(i);
            ComPtr<ICreateTypeInfo> made;
            EXPECT_EQ(
                library_->CreateTypeInfo(const_cast<wchar_t*>(name.c_str()), TKIND_DISPATCH, made.put()),
                S_OK);
            GUID id{};
            CoCreateGuid(&id);
            EXPECT_EQ(made->SetGuid(id), S_OK);
            types_.at(i) = made.as<ITypeInfo>();
        }
    }
    ITypeInfo* of(ItemClass item_class) const {
        return types_.at(static_cast<std::size_t>(item_class)).get();
    }

  private:
    ComPtr<ICreateTypeLib2> library_;
    std::array<ComPtr<ITypeInfo>, class_count> types_;
};

/// An item with the members of its class that part it from others, and `Save`. It notes which it was asked
/// for.
class ForeignItem final : public ComObject<IDispatch> {
  public:
    /// `type` is what it tells of itself; null: nothing.
    ForeignItem(Module& module, ItemClass item_class, ITypeInfo* type)
        : ComObject(module), class_(item_class), type_(type) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        ++type_questions;
        *count = type_ ? 1 : 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
        *info = ComPtr<ITypeInfo>(type_.get()).detach();
        return type_ ? S_OK : E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                            DISPID* ids) noexcept override {
        ++name_questions;
        const TextView name = from_wide(names[0], wcslen(names[0]));
        *ids = name == TextView(u"Save") ? save_id : id_of(name);
        return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        invoked.push_back(id);
        const bool known =
            id == save_id || std::ranges::any_of(parting_members, [&](const PublishedMember& row) {
                return row.item_class == class_ && row.id == id;
            });
        return known ? S_OK : DISP_E_MEMBERNOTFOUND;
    }

    /// The id that its class publishes for a name.
    DISPID id_of(TextView name) const {
        const auto* const row = std::ranges::find_if(parting_members, [&](const PublishedMember& one) {
            return one.item_class == class_ && one.name == name;
        });
        return row == std::end(parting_members) ? DISPID_UNKNOWN : row->id;
    }

    int type_questions = 0, name_questions = 0;
    std::vector<DISPID> invoked;

  private:
    void* query(REFIID iid) noexcept override {
        return iid == IID_IUnknown || iid == IID_IDispatch ? static_cast<IDispatch*>(this) : nullptr;
    }
    ItemClass class_;
    ComPtr<ITypeInfo> type_;
};

class ItemClasses : public Border {
  protected:
    /// An item of a class, and how the add-in sees it.
    struct Seen {
        ComPtr<ForeignItem> foreign;
        host::outlook::Item item;
    };
    Seen item(ItemClass item_class, bool tells) {
        Seen seen;
        seen.foreign = ComPtr<ForeignItem>::attach(
            new ForeignItem(module, item_class, tells ? types.of(item_class) : nullptr));
        seen.item = host::outlook::Item(Object(outside->adapt(seen.foreign.get())));
        return seen;
    }

    /// Calls a member of an item and expects that it was asked for by the id of its own class, or not at all.
    static void expect_own(const Seen& seen, TextView member) {
        SCOPED_TRACE(automation::to_utf8(member));
        const DISPID own = seen.foreign->id_of(member);
        seen.foreign->invoked.clear();
        const std::int32_t failed = failure_number([&] { seen.item.call(member); });
        if (own == DISPID_UNKNOWN) {
            EXPECT_EQ(failed, automation::result::unknown_name);
            EXPECT_EQ(seen.foreign->invoked, std::vector<DISPID>{});
        } else {
            EXPECT_EQ(failed, 0);
            EXPECT_EQ(seen.foreign->invoked, std::vector<DISPID>{own});
        }
    }

    Types types;
};

TEST_F(ItemClasses, KeepTheirIdsToThemselvesWhicheverCameFirst) {
    for (const bool tells : {false, true}) {
        SCOPED_TRACE(tells ? "they tell their types" : "they don't tell what they are");
        for (std::size_t first = 0; first < class_count; ++first) {
            for (std::size_t second = 0; second < class_count; ++second) {
                SCOPED_TRACE(std::to_string(first) + ", then " + std::to_string(second));
                outside = Apartment::create(module, u"Client");
                const Seen before = item(static_cast<ItemClass>(first), tells);
                const Seen after = item(static_cast<ItemClass>(second), tells);
                for (const Seen* const one : {&before, &after, &before}) {
                    for (const PublishedMember& row : parting_members) expect_own(*one, row.name);
                }
            }
        }
    }
}

TEST_F(ItemClasses, AreAskedForAnIdOnce) {
    const Seen first = item(ItemClass::mail, true), second = item(ItemClass::mail, true);
    for (const Seen* const one : {&first, &second}) {
        for (int i = 0; i < 3; ++i) {
            one->item.call(u"Subject");
            one->item.Save();
        }
        EXPECT_EQ(one->foreign->type_questions, 1);
        EXPECT_EQ(one->foreign->invoked.size(), 6U);
    }
    EXPECT_EQ(first.foreign->name_questions, 2);
    EXPECT_EQ(second.foreign->name_questions, 0);
}

TEST_F(ItemClasses, ThatArentToldShareWhatIsTheSameInAll) {
    const Seen mail = item(ItemClass::mail, false), post = item(ItemClass::post, false);
    for (const Seen* const one : {&mail, &post}) {
        for (int i = 0; i < 3; ++i) {
            one->item.call(u"Subject");
            one->item.Save();
        }
        EXPECT_EQ(one->foreign->invoked.size(), 6U);
    }
    EXPECT_EQ(mail.foreign->name_questions, 2);
    EXPECT_EQ(post.foreign->name_questions, 1) << "for the one member that parts the classes";
    EXPECT_EQ(mail.foreign->type_questions, 1);
    EXPECT_EQ(post.foreign->type_questions, 0) << "one of them has told for all that they don't tell";
}

}  // namespace
}  // namespace windows::testing
