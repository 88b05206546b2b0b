// Failures on their way across the border: exceptions inside, result codes outside.
#pragma once

#include "automation/com/faults.h"
#include "automation/com/platform.h"
#include "automation/failure.h"

namespace windows {

/// Throws `Failure` for a failed result; its description is the system's text, or `name` for a member that is
/// missing.
void check(HRESULT result, automation::TextView name = {});
[[noreturn]] void throw_result(HRESULT result, automation::TextView name = {});

/// Throws the failure that a late-bound call reported, and frees the texts in `details`.
[[noreturn]] void throw_reported(HRESULT result, EXCEPINFO& details, automation::TextView name);

/// The result code of a failure as a late-bound call answers it: the codes of IDispatch itself as they are,
/// any other as DISP_E_EXCEPTION with number, description and source in `details`, if there is a place for
/// them.
HRESULT report(const automation::Failure& failure, EXCEPINFO* details, automation::TextView source) noexcept;

/// Runs an action and makes a result code of whatever it throws.
template <class Action>
HRESULT guarded(Action&& action, CodePlace where = CodePlace::current()) noexcept {
    try {
        return action();
    } catch (const automation::Failure& failure) {
        return failure.number() < 0 ? failure.number() : E_FAIL;
    } catch (...) {
        return take_fault(where);
    }
}

/// The same for a late-bound call.
template <class Action>
HRESULT guarded(EXCEPINFO* details, automation::TextView source, Action&& action,
                CodePlace where = CodePlace::current()) noexcept {
    try {
        return action();
    } catch (const automation::Failure& failure) {
        return report(failure, details, source);
    } catch (...) {
        return take_fault(where);
    }
}

/// Runs what a callback of the system leads to: nothing may travel into the system. A failure of the host's
/// ends here without a word, as it ends a step.
template <class Action>
void contained(Action&& action, CodePlace where = CodePlace::current()) noexcept {
    try {
        action();
    } catch (const automation::Failure&) {
        return;
    } catch (...) {
        take_fault(where);
    }
}

}  // namespace windows
