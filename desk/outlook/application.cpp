#include "desk/outlook/application.h"

#include "desk/base/desk.h"
#include "desk/base/host_event_tables.h"
#include "desk/office/add_ins.h"
#include "desk/outlook/explorers.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item.h"
#include "desk/outlook/name_space.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Ignored;
using automation::Object;
using automation::Text;
using automation::Use;
namespace result = automation::result;

Object Application::parent() const { return desk().application()->self(); }

EventInterfaces Application::event_interfaces() const { return events::application; }

Object Application::create_item(std::int32_t type) const {
    const ItemKind& kind = kind_of_type(type);
    ItemData data;
    data.message_class = Text(kind.base_class);
    return std::make_shared<Item>(desk(), desk().default_folder(kind.default_folder), std::move(data))
        ->self();
}

const automation::Members<Application>& Application::members() {
    static const automation::Members<Application> table{
        {u"Name", 0x3001, Use::get, [](Application&) { return u"Outlook"; }},
        {u"Version", 0x116, Use::get, [](Application& self) { return self.desk().options().host_version; }},
        {u"ActiveExplorer", 0x111, Use::method,
         [](Application& self) { return self.desk().explorers()->active(); }},
        {u"ActiveInspector", 0x112, Use::method,
         [](Application& self) { return self.desk().inspectors()->active(); }},
        {u"ActiveWindow", 0x11F, Use::method,
         [](Application& self) {
             const auto& order = self.desk().window_order;
             return order.empty() ? Object() : order.back()->held();
         }},
        {u"CreateItem", 0x10A, Use::method, {u"ItemType"}, calls<&Application::create_item>},
        {u"CreateItemFromTemplate",
         0x10B,
         Use::method,
         {u"TemplatePath", u"InFolder"},
         [](Application& self, const Text& template_path, Ignored) {
             return self.desk().name_space()->open_message_file(template_path);
         }},
        {u"CreateObject",
         0x115,
         Use::method,
         {u"ObjectName"},
         [](Application& self, const Text& object_name) {
             return self.desk().surroundings().create_object(object_name);
         }},
        {u"GetNamespace",
         0x110,
         Use::method,
         {u"Type"},
         [](Application& self, const Text& type) {
             if (!automation::same_ignoring_case(type, u"MAPI")) {
                 throw Failure(result::invalid_argument, u"The only name space is \"MAPI\".");
             }
             return self.desk().name_space()->self();
         }},
        {u"Quit", 0x113, Use::method, [](Application& self) { self.desk().surroundings().quit(); }},
        {u"COMAddIns", 0x118, Use::get, [](Application& self) { return self.desk().add_ins()->self(); }},
        {u"Explorers", 0x119, Use::get, [](Application& self) { return self.desk().explorers()->self(); }},
        {u"Inspectors", 0x11A, Use::get, [](Application& self) { return self.desk().inspectors()->self(); }},
        {u"LanguageSettings", 0x11B, Use::get,
         [](Application& self) { return std::make_shared<LanguageSettings>(self.desk())->self(); }},
        {u"ProductCode", 0x11C, Use::get,
         [](Application&) { return u"{00000000-0000-0000-0000-000000000000}"; }},
        {u"IsTrusted", 0xFBF3, Use::get, [](Application&) { return true; }},
        {u"Desk", automation::no_id, Use::get, [](Application& self) { return self.desk().surface; }},
    };
    return table;
}

Object LanguageSettings::parent() const { return desk().application()->self(); }

const automation::Members<LanguageSettings>& LanguageSettings::members() {
    static const automation::Members<LanguageSettings> table{
        {u"LanguageID",
         0x1,
         Use::get,
         {u"Id"},
         [](LanguageSettings& self, std::int32_t id) {
             constexpr std::int32_t first = 1, last = 5;  // MsoAppLanguageID
             const std::int32_t which = id;
             if (which < first || which > last)
                 throw Failure(result::invalid_argument, u"There is no such language setting.");
             return self.desk().options().language;
         }},
        {u"LanguagePreferredForEditing",
         0x2,
         Use::get,
         {u"lid"},
         [](LanguageSettings& self, std::int32_t lid) { return lid == self.desk().options().language; }},
    };
    return table;
}

}  // namespace desk
