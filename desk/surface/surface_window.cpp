#include "desk/surface/surface_window.h"

#include "desk/base/desk.h"
#include "desk/surface/listing.h"

namespace desk {

using automation::Arguments;
using automation::Failure;
using automation::Object;
using automation::Takes;
using automation::Text;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

/// The place from 0 of a number from 1. Throws `result::bad_index` if there are fewer.
int place_from_0(std::int32_t number, int count) {
    if (number < 1 || number > count) throw Failure(result::bad_index, u"Array index out of bounds.");
    return number - 1;
}

/// Members that only ask the driver, or tell it something.
template <class Self, auto method>
Value asked(Self& self, const Arguments&) {
    return Value((self.driver().*method)());
}
template <class Self, auto method>
Value told(Self& self, const Arguments&) {
    (self.driver().*method)();
    return {};
}
template <class Self>
Value key(Self& self, const Arguments& a) {
    self.driver().key(a[0].to_integer());
    return {};
}
template <auto method>
Value told_number(SurfaceControl& self, const Arguments& a) {
    (self.*method)(a[0].to_integer());
    return {};
}
template <std::int32_t WindowPlace::*side>
Value measure(SurfaceWindow& self, const Arguments&) {
    return self.driver().place().*side;
}

}  // namespace

Object SurfaceWindow::parent() const { return desk().surface; }

Object SurfaceWindow::control(const Text& control_name) {
    std::shared_ptr<ControlDriver> found = driver_->control(control_name);
    if (!found) return {};
    return std::make_shared<SurfaceControl>(desk(), std::move(found), self())->self();
}

const automation::Members<SurfaceWindow>& SurfaceWindow::members() {
    using Self = SurfaceWindow;
    static const automation::Members<Self> table{
        {u"Caption", automation::no_id, Use::get, asked<Self, &WindowDriver::caption>},
        {u"Visible", automation::no_id, Use::get, asked<Self, &WindowDriver::visible>},
        {u"Topmost", automation::no_id, Use::get, asked<Self, &WindowDriver::topmost>},
        {u"Left", automation::no_id, Use::get, measure<&WindowPlace::left>},
        {u"Top", automation::no_id, Use::get, measure<&WindowPlace::top>},
        {u"Width", automation::no_id, Use::get, measure<&WindowPlace::width>},
        {u"Height", automation::no_id, Use::get, measure<&WindowPlace::height>},
        {u"Busy", automation::no_id, Use::get, asked<Self, &WindowDriver::busy>},
        {u"Close", automation::no_id, Use::method, told<Self, &WindowDriver::close>},
        {u"Resize",
         automation::no_id,
         Use::method,
         {{u"Width", Takes::integer}, {u"Height", Takes::integer}},
         [](Self& self, const Arguments& a) {
             self.driver().resize(a[0].to_integer(), a[1].to_integer());
             return Value();
         }},
        {u"Key", automation::no_id, Use::method, {{u"Code", Takes::integer}}, key<Self>},
        {u"Control",
         automation::no_id,
         Use::method,
         {{u"Name", Takes::text}},
         [](Self& self, const Arguments& a) { return Value(self.control(a[0].to_text())); }},
    };
    return table;
}

ControlDriver& SurfaceControl::with_entries() const {
    if (driver_->kind() != ControlDriver::Kind::combo && driver_->kind() != ControlDriver::Kind::list) {
        throw Failure(result::member_not_found, u"The control is neither a combo box nor a list.");
    }
    return *driver_;
}

ControlDriver& SurfaceControl::as_list() const {
    if (driver_->kind() != ControlDriver::Kind::list) {
        throw Failure(result::member_not_found, u"The control is no list.");
    }
    return *driver_;
}

Value SurfaceControl::item(std::int32_t place) {
    const ControlDriver& control = with_entries();
    const int row = place_from_0(place, control.count());
    if (control.kind() == ControlDriver::Kind::combo) return control.item(row, 0);
    return Value(std::make_shared<SurfaceRow>(desk(), driver_, row, self())->self());
}

std::int32_t SurfaceControl::selected() const {
    if (driver_->kind() == ControlDriver::Kind::toggle) return driver_->is_checked() ? 1 : 0;
    return with_entries().selected() + 1;
}

void SurfaceControl::select(std::int32_t place) {
    ControlDriver& control = with_entries();
    control.select(place_from_0(place, control.count()));
}

Object SurfaceControl::columns() {
    as_list();
    Desk& owner = desk();
    return std::make_shared<Listing>(
               owner, [list = driver_] { return static_cast<std::size_t>(list->columns()); },
               [&owner, list = driver_](std::size_t i) {
                   const ShownColumn column = list->column(static_cast<int>(i));
                   return Value(std::make_shared<Entry>(owner, Entry::Fields{{u"Text", column.text},
                                                                             {u"Width", column.width},
                                                                             {u"Image", column.image}})
                                    ->self());
               })
        ->self();
}

void SurfaceControl::column_click(std::int32_t place) {
    ControlDriver& list = as_list();
    list.column_click(place_from_0(place, list.columns()));
}

void SurfaceControl::drop(std::int32_t row, std::int32_t column) {
    ControlDriver& list = as_list();
    constexpr std::int32_t below_rows = 0;
    const int onto = row == below_rows ? -1 : place_from_0(row, list.count());
    list.drop(onto, place_from_0(column, list.columns()));
}

const automation::Members<SurfaceControl>& SurfaceControl::members() {
    using Self = SurfaceControl;
    static const std::vector<automation::Parameter> index{{u"Index", Takes::integer}};
    static const automation::Members<Self> table{
        {u"Text", automation::no_id, Use::get_put,
         [](Self& self, const Arguments& a) {
             if (a.is_put()) self.driver().type(a.assigned().to_text());
             return Value(self.driver().text());
         }},
        {u"Visible", automation::no_id, Use::get, asked<Self, &ControlDriver::visible>},
        {u"Enabled", automation::no_id, Use::get, asked<Self, &ControlDriver::enabled>},
        {u"ToolTip", automation::no_id, Use::get, asked<Self, &ControlDriver::tool_tip>},
        {u"Click", automation::no_id, Use::method, told<Self, &ControlDriver::click>},
        {u"DoubleClick", automation::no_id, Use::method, told<Self, &ControlDriver::double_click>},
        {u"Key", automation::no_id, Use::method, {{u"Code", Takes::integer}}, key<Self>},
        {u"Count", automation::no_id, Use::get,
         [](Self& self, const Arguments&) { return Value(self.with_entries().count()); }},
        {u"Item", automation::no_id, Use::method, index,
         [](Self& self, const Arguments& a) { return self.item(a[0].to_integer()); }},
        {u"Selected", automation::no_id, Use::get,
         [](Self& self, const Arguments&) { return Value(self.selected()); }},
        {u"Select", automation::no_id, Use::method, index, told_number<&Self::select>},
        {u"Columns", automation::no_id, Use::get,
         [](Self& self, const Arguments&) { return Value(self.columns()); }},
        {u"ColumnClick", automation::no_id, Use::method, index, told_number<&Self::column_click>},
        {u"Drop",
         automation::no_id,
         Use::method,
         {{u"Row", Takes::integer}, {u"Column", Takes::integer, true}},
         [](Self& self, const Arguments& a) {
             self.drop(a[0].to_integer(), a.has(1) ? a[1].to_integer() : 1);
             return Value();
         }},
    };
    return table;
}

Text SurfaceRow::sub_item(std::int32_t place) const {
    return list_->item(row_, place_from_0(place, list_->columns() - 1) + 1);
}

const automation::Members<SurfaceRow>& SurfaceRow::members() {
    using Self = SurfaceRow;
    static const automation::Members<Self> table{
        {u"Text", automation::no_id, Use::get,
         [](Self& self, const Arguments&) { return Value(self.text()); }},
        {u"SubItems",
         automation::no_id,
         Use::get,
         {{u"Index", Takes::integer}},
         [](Self& self, const Arguments& a) { return Value(self.sub_item(a[0].to_integer())); }},
    };
    return table;
}

}  // namespace desk
