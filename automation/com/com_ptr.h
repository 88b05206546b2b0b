// Ownership of COM interfaces, texts and variants as types.
#pragma once

#include <bit>
#include <utility>

#include "automation/com/platform.h"
#include "automation/guid.h"
#include "automation/text.h"

namespace windows {

/// A GUID as the platform's calls take it.
inline GUID to_guid(const automation::Guid& id) { return std::bit_cast<GUID>(id); }
inline automation::Guid from_guid(const GUID& id) { return std::bit_cast<automation::Guid>(id); }

/// A text as the platform's calls take it. Valid as long as the text is.
inline const wchar_t* wide(const automation::Text& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline automation::TextView from_wide(const wchar_t* text, std::size_t length) {
    return {reinterpret_cast<const char16_t*>(text), length};
}

/// A counted reference to a COM interface.
template <class T>
class ComPtr {
  public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    explicit ComPtr(T* pointer) : pointer_(pointer) {
        if (pointer_) pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ~ComPtr() { reset(); }
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }

    /// Takes over a reference that is already counted.
    static ComPtr attach(T* pointer) {
        ComPtr owner;
        owner.pointer_ = pointer;
        return owner;
    }
    /// Gives the counted reference away.
    [[nodiscard]] T* detach() { return std::exchange(pointer_, nullptr); }

    /// The place for a call to put its answer into; empty beforehand.
    T** put() {
        reset();
        return &pointer_;
    }
    void** put_void() { return reinterpret_cast<void**>(put()); }

    void reset() {
        if (T* const going = detach()) going->Release();
    }

    T* get() const { return pointer_; }
    T* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

    /// Another interface of the object; empty if it has none of that id.
    template <class U>
    ComPtr<U> as(const IID& iid = __uuidof(U)) const {
        ComPtr<U> other;
        if (pointer_) pointer_->QueryInterface(iid, other.put_void());
        return other;
    }

  private:
    T* pointer_ = nullptr;
};

/// An owned BSTR.
class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(automation::TextView text);  ///< throws `std::bad_alloc`
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    BSTR* put() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }
    [[nodiscard]] BSTR detach() { return std::exchange(text_, nullptr); }
    automation::TextView view() const { return from_wide(text_, SysStringLen(text_)); }

  private:
    BSTR text_ = nullptr;
};

/// An owned VARIANT, laid out as one, so that a row of them is an argument list.
class Variant : public VARIANT {
  public:
    Variant() { VariantInit(this); }
    Variant(Variant&& other) noexcept : VARIANT(other) { VariantInit(&other); }
    Variant& operator=(Variant other) noexcept {
        std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
        return *this;
    }
    ~Variant() { clear(); }

    void clear() { VariantClear(this); }

    /// Gives the content away.
    [[nodiscard]] VARIANT detach() {
        const VARIANT content = *this;
        VariantInit(this);
        return content;
    }
};
static_assert(sizeof(Variant) == sizeof(VARIANT));

}  // namespace windows
