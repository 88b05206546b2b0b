#include "addin/quickview/sticky_notes.h"

#include "addin/ground/steps.h"
#include "addin/records/names.h"

namespace addin::quickview {
namespace {

/// Whether a window shows a sticky note of an account. One of which that can't be told belongs to none: it is
/// the user's own, and closing it would drop what stands in it.
bool is_note_of_account(const Session& session, const host::outlook::Inspector& inspector,
                        const automation::Text& account_id) {
    const Steps steps(session);
    namespace object_class = host::outlook::object_class;
    if (steps.certainly([&] { return inspector.CurrentItem().Class() != object_class::note; })) return false;
    return steps.certainly([&] {
        const bool sticky = inspector.CurrentItem().MessageClass() == records::message_class::sticky_note;
        const automation::Text id =
            inspector.CurrentItem().itemproperties().Item(records::property::account_id).value().to_text();
        return sticky && id == account_id;
    });
}

}  // namespace

void close_sticky_notes(Session& session, const automation::Text& account_id) {
    const Steps steps(session);
    host::outlook::Inspectors inspectors;
    steps.set(inspectors,
              [&] { return host::outlook::Application(session.desktop.application()).Inspectors(); });
    std::int32_t count = 0;
    steps.set(count, [&] { return inspectors.Count(); });
    for (std::int32_t i = count; i > 0; --i) {
        host::outlook::Inspector inspector;
        steps.set(inspector, [&] { return inspectors.Item(i); });
        if (is_note_of_account(session, inspector, account_id)) {
            steps.run([&] { inspector.Close(host::outlook::discard_changes); });
        }
    }
}

}  // namespace addin::quickview
