#include "family/note_add_in.h"

#include "addin/ground/product.h"
#include "addin/host/outlook.h"
#include "family/context.h"

namespace family {

using automation::Failure;
using automation::Object;

Object note_add_in(Context& context) {
    const Failure not_there(automation::result::not_found, u"The Create Note add-in is not loaded.");
    Object published;
    try {
        const host::outlook::Application application(context.application());
        published = application.COMAddIns().Item(addin::connect_prog_id).get(u"Object").to_object();
    } catch (const Failure&) {
        throw not_there;
    }
    if (!published) throw not_there;
    return published;
}

}  // namespace family
