#include "commands/context_menu.h"

#include "core/steps.h"

namespace addin::commands {

void SetBarProtection(Session& session, const host::office::CommandBar& bar, bool restore) {
    constexpr std::int32_t protection_bit = host::office::bar_no_customize;
    Steps steps;
    if (!restore) {
        steps.set(session.wasProtected, [&] { return (bar.Protection() & protection_bit) != 0; });
        if (session.wasProtected) steps.run([&] { bar.Protection(bar.Protection() & ~protection_bit); });
    } else if (session.wasProtected) {
        steps.run([&] { bar.Protection(bar.Protection() & protection_bit); });
    }
}

}  // namespace addin::commands
