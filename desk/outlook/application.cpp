#include "desk/outlook/application.h"

#include "desk/base/desk.h"
#include "desk/base/host_event_tables.h"
#include "desk/office/add_ins.h"
#include "desk/outlook/explorers.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item.h"
#include "desk/outlook/name_space.h"

namespace desk {

using automation::Arguments;
using automation::Failure;
using automation::Object;
using automation::Takes;
using automation::Text;
using automation::Use;
using automation::Value;
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
        {u"Name", 0x3001, Use::get, [](Application&, const Arguments&) { return Value(u"Outlook"); }},
        {u"Version", 0x116, Use::get,
         [](Application& self, const Arguments&) { return Value(self.desk().options().host_version); }},
        {u"ActiveExplorer", 0x111, Use::method,
         [](Application& self, const Arguments&) { return Value(self.desk().explorers()->active()); }},
        {u"ActiveInspector", 0x112, Use::method,
         [](Application& self, const Arguments&) { return Value(self.desk().inspectors()->active()); }},
        {u"ActiveWindow", 0x11F, Use::method,
         [](Application& self, const Arguments&) {
             const auto& order = self.desk().window_order;
             return Value(order.empty() ? Object() : order.back()->held());
         }},
        {u"CreateItem",
         0x10A,
         Use::method,
         {{u"ItemType", Takes::integer}},
         [](Application& self, const Arguments& a) { return Value(self.create_item(a[0].to_integer())); }},
        {u"CreateItemFromTemplate",
         0x10B,
         Use::method,
         {{u"TemplatePath", Takes::text}, {u"InFolder", Takes::value, true}},
         [](Application& self, const Arguments& a) {
             return Value(self.desk().name_space()->open_message_file(a[0].to_text()));
         }},
        {u"CreateObject",
         0x115,
         Use::method,
         {{u"ObjectName", Takes::text}},
         [](Application& self, const Arguments& a) {
             return Value(self.desk().surroundings().create_object(a[0].to_text()));
         }},
        {u"GetNamespace",
         0x110,
         Use::method,
         {{u"Type", Takes::text}},
         [](Application& self, const Arguments& a) {
             if (!automation::same_ignoring_case(a[0].to_text(), u"MAPI")) {
                 throw Failure(result::invalid_argument, u"The only name space is \"MAPI\".");
             }
             return Value(self.desk().name_space()->self());
         }},
        {u"Quit", 0x113, Use::method,
         [](Application& self, const Arguments&) {
             self.desk().surroundings().quit();
             return Value();
         }},
        {u"COMAddIns", 0x118, Use::get,
         [](Application& self, const Arguments&) { return Value(self.desk().add_ins()->self()); }},
        {u"Explorers", 0x119, Use::get,
         [](Application& self, const Arguments&) { return Value(self.desk().explorers()->self()); }},
        {u"Inspectors", 0x11A, Use::get,
         [](Application& self, const Arguments&) { return Value(self.desk().inspectors()->self()); }},
        {u"LanguageSettings", 0x11B, Use::get,
         [](Application& self, const Arguments&) {
             return Value(std::make_shared<LanguageSettings>(self.desk())->self());
         }},
        {u"ProductCode", 0x11C, Use::get,
         [](Application&, const Arguments&) { return Value(u"{00000000-0000-0000-0000-000000000000}"); }},
        {u"IsTrusted", 0xFBF3, Use::get, [](Application&, const Arguments&) { return Value(true); }},
        {u"Desk", automation::no_id, Use::get,
         [](Application& self, const Arguments&) { return Value(self.desk().surface); }},
    };
    return table;
}

Object LanguageSettings::parent() const { return desk().application()->self(); }

const automation::Members<LanguageSettings>& LanguageSettings::members() {
    static const automation::Members<LanguageSettings> table{
        {u"LanguageID",
         0x1,
         Use::get,
         {{u"Id", Takes::integer}},
         [](LanguageSettings& self, const Arguments& a) {
             constexpr std::int32_t first = 1, last = 5;  // MsoAppLanguageID
             const std::int32_t which = a[0].to_integer();
             if (which < first || which > last)
                 throw Failure(result::invalid_argument, u"There is no such language setting.");
             return Value(self.desk().options().language);
         }},
        {u"LanguagePreferredForEditing",
         0x2,
         Use::get,
         {{u"lid", Takes::integer}},
         [](LanguageSettings& self, const Arguments& a) {
             return Value(a[0].to_integer() == self.desk().options().language);
         }},
    };
    return table;
}

}  // namespace desk
