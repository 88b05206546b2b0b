#include "automation/com/failure.h"

#include <array>

#include "automation/com/com_ptr.h"

namespace windows {
namespace {

constexpr HRESULT control_errors =
    static_cast<HRESULT>(0x800A0000);  // where 16-bit error numbers have their place

/// The codes by which IDispatch itself tells what was wrong with a call.
bool is_dispatch_code(std::int32_t number) {
    constexpr std::int32_t first = DISP_E_UNKNOWNINTERFACE, last = DISP_E_BUFFERTOOSMALL;
    return number >= first && number <= last && number != DISP_E_EXCEPTION;
}

automation::Text system_text(HRESULT result) {
    std::array<wchar_t, 512> buffer{};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(result), 0, buffer.data(), buffer.size(), nullptr);
    while (length > 0 && (buffer[length - 1] == L'\n' || buffer[length - 1] == L'\r')) --length;
    return automation::Text(from_wide(buffer.data(), length));
}

automation::Text text_of(BSTR text) { return automation::Text(from_wide(text, SysStringLen(text))); }

BSTR to_bstr(automation::TextView text) noexcept {
    return SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()));
}

}  // namespace

void throw_result(HRESULT result, automation::TextView name) {
    const bool missing = result == DISP_E_MEMBERNOTFOUND || result == DISP_E_UNKNOWNNAME;
    throw automation::Failure(result, missing ? automation::Text(name) : system_text(result));
}

void check(HRESULT result, automation::TextView name) {
    if (FAILED(result)) throw_result(result, name);
}

void throw_reported(HRESULT result, EXCEPINFO& details, automation::TextView name) {
    if (result == DISP_E_EXCEPTION && details.pfnDeferredFillIn) details.pfnDeferredFillIn(&details);
    const automation::Text description = text_of(details.bstrDescription);
    SysFreeString(std::exchange(details.bstrDescription, nullptr));
    SysFreeString(std::exchange(details.bstrSource, nullptr));
    SysFreeString(std::exchange(details.bstrHelpFile, nullptr));
    if (result != DISP_E_EXCEPTION) throw_result(result, name);

    HRESULT number = details.scode;
    if (number == 0 && details.wCode != 0) number = control_errors | details.wCode;
    if (number == 0) number = DISP_E_EXCEPTION;
    throw automation::Failure(number, description.empty() ? system_text(number) : description);
}

HRESULT report(const automation::Failure& failure, EXCEPINFO* details, automation::TextView source) noexcept {
    if (is_dispatch_code(failure.number())) return failure.number();
    if (details) {
        const std::int32_t number = failure.number();
        *details = EXCEPINFO{};
        if (number > 0 && number <= 0xFFFF) {
            details->wCode = static_cast<WORD>(number);
        } else {
            details->scode = number < 0 ? number : E_FAIL;
        }
        details->bstrDescription = to_bstr(failure.description());
        details->bstrSource = to_bstr(source);
    }
    return DISP_E_EXCEPTION;
}

}  // namespace windows
