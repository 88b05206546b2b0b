#include "automation/com/enumerator.h"

#include "automation/com/failure.h"
#include "automation/com/variant.h"

namespace windows {
namespace {

constexpr automation::TextView count_name = u"Count", item_name = u"Item";

bool has_member(automation::Invocable& object, automation::TextView member) {
    return object.identify(member, {}).has_value();
}

}  // namespace

Enumerator::Enumerator(std::shared_ptr<Apartment> apartment,
                       std::shared_ptr<automation::Invocable> collection, ULONG next)
    : ComObject(apartment->module()),
      apartment_(std::move(apartment)),
      collection_(std::move(collection)),
      next_(next) {}

ComPtr<IEnumVARIANT> Enumerator::create(std::shared_ptr<Apartment> apartment,
                                        std::shared_ptr<automation::Invocable> collection) {
    if (!has_member(*collection, count_name) || !has_member(*collection, item_name)) return {};
    return ComPtr<IEnumVARIANT>::attach(new Enumerator(std::move(apartment), std::move(collection), 1));
}

void* Enumerator::query(REFIID iid) noexcept {
    return iid == IID_IUnknown || iid == IID_IEnumVARIANT ? static_cast<IEnumVARIANT*>(this) : nullptr;
}

ULONG Enumerator::count() {
    const std::int32_t count = automation::Object(collection_).get(count_name).to_integer();
    return count > 0 ? static_cast<ULONG>(count) : 0;
}

HRESULT Enumerator::Next(ULONG wanted, VARIANT* items, ULONG* fetched) noexcept {
    if (fetched) *fetched = 0;
    if (!items || (!fetched && wanted != 1)) return E_POINTER;
    const ComPtr<IEnumVARIANT> alive(this);
    ULONG got = 0;
    const HRESULT result = guarded([&] {
        for (; got < wanted && next_ <= count(); ++got) {
            const automation::Value item =
                automation::Object(collection_).get(item_name, {static_cast<std::int32_t>(next_)});
            items[got] = to_variant(item, *apartment_).detach();
            ++next_;
        }
        return got == wanted ? S_OK : S_FALSE;
    });
    if (FAILED(result)) {  // nothing is handed out then
        while (got > 0) {
            VariantClear(&items[--got]);
            --next_;
        }
    }
    if (fetched) *fetched = got;
    return result;
}

HRESULT Enumerator::Skip(ULONG number) noexcept {
    return guarded([&] {
        const ULONG all = count();
        const ULONG left = next_ <= all ? all - next_ + 1 : 0;
        const bool enough = number <= left;
        next_ += enough ? number : left;
        return enough ? S_OK : S_FALSE;
    });
}

HRESULT Enumerator::Reset() noexcept {
    next_ = 1;
    return S_OK;
}

HRESULT Enumerator::Clone(IEnumVARIANT** clone) noexcept {
    if (!clone) return E_POINTER;
    *clone = nullptr;
    return guarded([&] {
        *clone = new Enumerator(apartment_, collection_, next_);
        return S_OK;
    });
}

}  // namespace windows
