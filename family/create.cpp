#include "family/create.h"

#include <algorithm>

#include "family/list_picker.h"
#include "family/main_add_in.h"
#include "family/reports_host.h"
#include "family/safe_item.h"
#include "family/safe_mail_item.h"

namespace family {
namespace {

using automation::guid;

template <class T>
automation::Object make(std::shared_ptr<Context> context) {
    return automation::Object(std::make_shared<T>(std::move(context)));
}

/// The main add-in of the family brings its menu with it. A host without windows has no place for one.
automation::Object make_main_add_in(std::shared_ptr<Context> context) {
    try {
        if (context->setting(setting::menu) == u"1") context->menu().put_up();
    } catch (const automation::Failure&) {
        context->menu().let_go();  // the next one tries again
    }
    return make<MainAddIn>(std::move(context));
}

constexpr ClassEntry class_table[] = {
    {u"Tarnwell.connect", guid("{AF16E176-8FD4-418C-9D4A-576005E63CEE}"), make_main_add_in},
    {u"ContactList.List", guid("{59E3AF82-5E41-4766-9B1D-B943977DB692}"), make<ListPicker>},
    {u"TarnwellReports.Reports", guid("{B1E370C1-DC09-46BD-AC16-9675E8B7961C}"), make<ReportsHost>},
    {u"TarnwellOMG.SafeMailItem", guid("{B602D312-7ADC-400C-ACF8-C1FA20D26596}"), make<SafeMailItem>},
    {u"TarnwellOMG.SafeContactItem", guid("{E027519C-3EE7-4AD5-A208-78576B565C33}"), make<SafeContactItem>},
    {u"TarnwellOMG.SafePostItem", guid("{81D9D862-2BBF-47D9-B389-14F4F5FA7E79}"), make<SafePostItem>},
};

}  // namespace

std::span<const ClassEntry> classes() { return class_table; }

automation::Object create(automation::TextView prog_id, std::shared_ptr<Context> context) {
    const auto found = std::ranges::find_if(class_table, [&](const ClassEntry& entry) {
        return automation::same_ignoring_case(entry.prog_id, prog_id);
    });
    return found == std::end(class_table) ? automation::Object() : found->make(std::move(context));
}

}  // namespace family
