// A walk over a collection.
#pragma once

#include "automation/com/apartment.h"
#include "automation/com/com_object.h"

namespace windows {

/// Walks over an object's `Item(i)`, from 1 to its `Count`. Both are asked at each step, so the walk is over
/// what the collection is by then.
class Enumerator final : public ComObject<IEnumVARIANT> {
  public:
    /// Empty if the object is no collection.
    static ComPtr<IEnumVARIANT> create(std::shared_ptr<Apartment> apartment,
                                       std::shared_ptr<automation::Invocable> collection);

    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* items, ULONG* fetched) noexcept override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG number) noexcept override;
    HRESULT STDMETHODCALLTYPE Reset() noexcept override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** clone) noexcept override;

  private:
    Enumerator(std::shared_ptr<Apartment> apartment, std::shared_ptr<automation::Invocable> collection,
               ULONG next);
    void* query(REFIID iid) noexcept override;
    ULONG count();

    std::shared_ptr<Apartment> apartment_;
    std::shared_ptr<automation::Invocable> collection_;
    ULONG next_;
};

}  // namespace windows
