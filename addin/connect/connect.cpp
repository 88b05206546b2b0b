#include "addin/connect/connect.h"

#include <algorithm>

#include "addin/filing/received_mail.h"
#include "addin/filing/sent_mail.h"
#include "addin/ground/settings.h"
#include "addin/ground/status.h"
#include "addin/quickview/launch.h"
#include "automation/watched.h"

namespace addin {

using automation::Arguments;
using automation::Takes;
using automation::Use;
using automation::Value;

namespace {

Value nothing() { return {}; }

Settings settings(Connect& self) { return Settings(self.session().desktop); }

Value launch(Connect& self, quickview::Launch which, Value& selection) {
    quickview::launch(self.rooms().quickview, self.goExplorer, which, selection);
    return nothing();
}

/// A flag that is published as it is.
template <auto flag>
Value published(Connect& self, const Arguments& arguments) {
    if (arguments.is_put()) self.*flag = arguments.assigned().to_boolean();
    return self.*flag;
}

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
         {{u"Item", Takes::object}},
         [](Connect& self, const Arguments& a) {
             filing::AutomaticCreateNote(self.session(), host::outlook::Item(a[0].to_object()));
             return nothing();
         }},
        {u"QueryValueEx",
         first + 1,
         Use::method,
         {{u"lhKey", Takes::integer}, {u"szValueName", Takes::text}, {u"vValue"}},
         [](Connect& self, const Arguments& a) {
             return Value(settings(self).QueryValueEx(a[0].to_integer(), a[1].to_text(), a[2]));
         }},
        {u"GetKeyValueEx",
         first + 2,
         Use::method,
         {{u"lKey", Takes::integer}, {u"sKeyName", Takes::text}, {u"sValueName", Takes::text}},
         [](Connect& self, const Arguments& a) {
             return settings(self).GetKeyValueEx(a[0].to_integer(), a[1].to_text(), a[2].to_text());
         }},
        {u"PowerPanel", first + 3, Use::method,
         [](Connect& self, const Arguments&) {
             self.rooms_.searchpanel.search_panel.show();
             return nothing();
         }},
        {u"AutomaticCreateNoteSend",
         first + 4,
         Use::method,
         {{u"Item", Takes::object}},
         [](Connect& self, const Arguments& a) {
             filing::AutomaticCreateNoteSend(self.session(), host::outlook::Item(a[0].to_object()));
             return nothing();
         }},
        {u"ShowQuickView",
         first + 5,
         Use::method,
         {{u"Selection"}},
         [](Connect& self, const Arguments& a) { return launch(self, quickview::Launch::quick_view, a[0]); }},
        {u"ShowTarnwell",
         first + 6,
         Use::method,
         {{u"Selection"}},
         [](Connect& self, const Arguments& a) { return launch(self, quickview::Launch::tarnwell, a[0]); }},
        {u"ShowMessage",
         first + 7,
         Use::method,
         {{u"MyText"}},
         [](Connect& self, const Arguments& a) {
             addin::ShowMessage(self.session(), self.session().desktop.text_of(a[0]));
             return nothing();
         }},
        {u"ShowImportMessage",
         first + 8,
         Use::method,
         {{u"MyText", Takes::text}, {u"SleepTime", Takes::integer}},
         [](Connect& self, const Arguments& a) {
             addin::ShowImportMessage(self.session(), a[0].to_text(), a[1].to_integer());
             return nothing();
         }},
        {u"FileExists",
         first + 9,
         Use::method,
         {{u"Fname", Takes::text}},
         [](Connect& self, const Arguments& a) {
             return Value(addin::FileExists(self.session().desktop, a[0].to_text()));
         }},
        {u"FindFolder", first + 10, Use::method,
         [](Connect& self, const Arguments&) {
             self.FindFolder();
             return nothing();
         }},
        {u"FindNextFolder",
         first + 11,
         Use::method,
         {{u"ofolders", Takes::object}},
         [](Connect& self, const Arguments& a) {
             self.FindNextFolder(host::outlook::Folders(a[0].to_object()));
             return nothing();
         }},
        {u"SetValueEx",
         first + 12,
         Use::method,
         {{u"hKey", Takes::integer}, {u"sValueName", Takes::text}, {u"lType", Takes::integer}, {u"vValue"}},
         [](Connect& self, const Arguments& a) {
             return Value(settings(self).SetValueEx(a[0].to_integer(), a[1].to_text(),
                                                    static_cast<std::uint32_t>(a[2].to_integer()), a[3]));
         }},
        {u"SetKeyValue",
         first + 13,
         Use::method,
         {{u"lKey", Takes::integer},
          {u"sKeyName", Takes::text},
          {u"sValueName", Takes::text},
          {u"vValueSetting"},
          {u"lValueType", Takes::integer}},
         [](Connect& self, const Arguments& a) {
             return Value(settings(self).SetKeyValue(a[0].to_integer(), a[1].to_text(), a[2].to_text(), a[3],
                                                     static_cast<std::uint32_t>(a[4].to_integer())));
         }},
        {u"ShowItemsMenu",
         first + 14,
         Use::method,
         {{u"Myitem", Takes::object}},
         [](Connect& self, const Arguments& a) {
             self.ShowItemsMenu(host::outlook::Item(a[0].to_object()));
             return nothing();
         }},
        {u"ShowItemsMenu2",
         first + 15,
         Use::method,
         {{u"Myitem", Takes::object}},
         [](Connect& self, const Arguments& a) {
             self.ShowItemsMenu2(host::outlook::Item(a[0].to_object()));
             return nothing();
         }},
        {u"GlobalCalendar", first + 16, Use::get_put, published<&Connect::GlobalCalendar>},
        {u"GlobalTask", first + 17, Use::get_put, published<&Connect::GlobalTask>},
        {u"SetDatabase", first + 18, Use::get_put,
         [](Connect& self, const Arguments& a) {
             if (a.is_put()) self.search.SetDatabase = a.assigned().to_boolean();
             return Value(self.search.SetDatabase);
         }},
        {u"whoami", first + 19, Use::get_put,
         [](Connect& self, const Arguments& a) {
             if (a.is_put()) self.search.whoami = a.assigned().to_text();
             return Value(self.search.whoami);
         }},
        {u"bFinished", first + 20, Use::get_put, published<&Connect::bFinished>},
    };
    return table;
}

}  // namespace addin
