#include "addin/connect/connect.h"

#include <algorithm>

#include "addin/filing/received_mail.h"
#include "addin/filing/sent_mail.h"
#include "addin/ground/settings.h"
#include "addin/ground/status.h"
#include "addin/quickview/launch.h"
#include "automation/watched.h"

namespace addin {

using automation::calls;
using automation::Object;
using automation::Text;
using automation::Use;
using automation::Value;

namespace {

Settings settings(Connect& self) { return Settings(self.session().desktop); }

void launch(Connect& self, quickview::Launch which, Value& selection) {
    quickview::launch(self.rooms().quickview, self.goExplorer, which, selection);
}

/// A flag that is published as it is.
template <auto flag>
constexpr automation::Property published{+[](const Connect& self) { return self.*flag; },
                                         +[](Connect& self, bool given) { self.*flag = given; }};

}  // namespace

Value Connect::invoke(automation::Request& request) {
    const std::shared_ptr<Connect> alive = shared_from_this();
    StepObserver* const observer = session().step_observer;
    if (!observer) return Automated::invoke(request);
    const automation::Row<Connect>* const row = members().find(request);
    const Entry entry(observer, row ? automation::to_utf8(row->name) : "an unknown operation");
    const Value answer = automation::Watch::bare(Automated::invoke(request));
    std::ranges::transform(request.arguments, request.arguments.begin(), automation::Watch::bare);
    return answer;
}

const automation::Members<Connect>& Connect::members() {
    // ids count from where the compilers of this family's programs began, in the declared order
    constexpr std::int32_t first = 0x60030000;
    static const automation::Members<Connect> table{
        {u"AutomaticCreateNote",
         first + 0,
         Use::method,
         {u"Item"},
         [](Connect& self, const Object& item) {
             filing::AutomaticCreateNote(self.session(), host::outlook::Item(item));
         }},
        {u"QueryValueEx",
         first + 1,
         Use::method,
         {u"lhKey", u"szValueName", u"vValue"},
         [](Connect& self, std::int32_t lh_key, const Text& sz_value_name, Value& v_value) {
             return settings(self).QueryValueEx(lh_key, sz_value_name, v_value);
         }},
        {u"GetKeyValueEx",
         first + 2,
         Use::method,
         {u"lKey", u"sKeyName", u"sValueName"},
         [](Connect& self, std::int32_t l_key, const Text& s_key_name, const Text& s_value_name) {
             return settings(self).GetKeyValueEx(l_key, s_key_name, s_value_name);
         }},
        {u"PowerPanel", first + 3, Use::method,
         [](Connect& self) { self.rooms_.searchpanel.search_panel.show(); }},
        {u"AutomaticCreateNoteSend",
         first + 4,
         Use::method,
         {u"Item"},
         [](Connect& self, const Object& item) {
             filing::AutomaticCreateNoteSend(self.session(), host::outlook::Item(item));
         }},
        {u"ShowQuickView",
         first + 5,
         Use::method,
         {u"Selection"},
         [](Connect& self, Value& selection) { launch(self, quickview::Launch::quick_view, selection); }},
        {u"ShowTarnwell",
         first + 6,
         Use::method,
         {u"Selection"},
         [](Connect& self, Value& selection) { launch(self, quickview::Launch::tarnwell, selection); }},
        {u"ShowMessage",
         first + 7,
         Use::method,
         {u"MyText"},
         [](Connect& self, const Value& my_text) {
             addin::ShowMessage(self.session(), self.session().desktop.text_of(my_text));
         }},
        {u"ShowImportMessage",
         first + 8,
         Use::method,
         {u"MyText", u"SleepTime"},
         [](Connect& self, const Text& my_text, std::int32_t sleep_time) {
             addin::ShowImportMessage(self.session(), my_text, sleep_time);
         }},
        {u"FileExists",
         first + 9,
         Use::method,
         {u"Fname"},
         [](Connect& self, const Text& fname) { return addin::FileExists(self.session().desktop, fname); }},
        {u"FindFolder", first + 10, Use::method, calls<&Connect::FindFolder>},
        {u"FindNextFolder",
         first + 11,
         Use::method,
         {u"ofolders"},
         [](Connect& self, const Object& ofolders) {
             self.FindNextFolder(host::outlook::Folders(ofolders));
         }},
        {u"SetValueEx",
         first + 12,
         Use::method,
         {u"hKey", u"sValueName", u"lType", u"vValue"},
         [](Connect& self, std::int32_t h_key, const Text& s_value_name, std::int32_t l_type,
            const Value& v_value) {
             return settings(self).SetValueEx(h_key, s_value_name, static_cast<std::uint32_t>(l_type),
                                              v_value);
         }},
        {u"SetKeyValue",
         first + 13,
         Use::method,
         {u"lKey", u"sKeyName", u"sValueName", u"vValueSetting", u"lValueType"},
         [](Connect& self, std::int32_t l_key, const Text& s_key_name, const Text& s_value_name,
            const Value& v_value_setting, std::int32_t l_value_type) {
             return settings(self).SetKeyValue(l_key, s_key_name, s_value_name, v_value_setting,
                                               static_cast<std::uint32_t>(l_value_type));
         }},
        {u"ShowItemsMenu",
         first + 14,
         Use::method,
         {u"Myitem"},
         [](Connect& self, const Object& myitem) { self.ShowItemsMenu(host::outlook::Item(myitem)); }},
        {u"ShowItemsMenu2",
         first + 15,
         Use::method,
         {u"Myitem"},
         [](Connect& self, const Object& myitem) { self.ShowItemsMenu2(host::outlook::Item(myitem)); }},
        {u"GlobalCalendar", first + 16, published<&Connect::GlobalCalendar>},
        {u"GlobalTask", first + 17, published<&Connect::GlobalTask>},
        {u"SetDatabase", first + 18, [](Connect& self) { return self.search.SetDatabase; },
         [](Connect& self, bool given) { self.search.SetDatabase = given; }},
        {u"whoami", first + 19, [](Connect& self) { return self.search.whoami; },
         [](Connect& self, const Text& given) { self.search.whoami = given; }},
        {u"bFinished", first + 20, published<&Connect::bFinished>},
    };
    return table;
}

}  // namespace addin
