#include "desk/surface/surface_window.h"

#include "desk/base/desk.h"
#include "desk/surface/listing.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Object;
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
auto driven(Self& self) {
    return (self.driver().*method)();
}
template <class Self>
void key(Self& self, std::int32_t code) {
    self.driver().key(code);
}
template <std::int32_t WindowPlace::*side>
std::int32_t measure(SurfaceWindow& self) {
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
        {u"Caption", automation::no_id, Use::get, driven<Self, &WindowDriver::caption>},
        {u"Visible", automation::no_id, Use::get, driven<Self, &WindowDriver::visible>},
        {u"Topmost", automation::no_id, Use::get, driven<Self, &WindowDriver::topmost>},
        {u"Left", automation::no_id, Use::get, measure<&WindowPlace::left>},
        {u"Top", automation::no_id, Use::get, measure<&WindowPlace::top>},
        {u"Width", automation::no_id, Use::get, measure<&WindowPlace::width>},
        {u"Height", automation::no_id, Use::get, measure<&WindowPlace::height>},
        {u"Busy", automation::no_id, Use::get, driven<Self, &WindowDriver::busy>},
        {u"Close", automation::no_id, Use::method, driven<Self, &WindowDriver::close>},
        {u"Resize",
         automation::no_id,
         Use::method,
         {u"Width", u"Height"},
         [](Self& self, std::int32_t width, std::int32_t height) { self.driver().resize(width, height); }},
        {u"Key", automation::no_id, Use::method, {u"Code"}, key<Self>},
        {u"Control", automation::no_id, Use::method, {u"Name"}, calls<&Self::control>},
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
    static const automation::Members<Self> table{
        {u"Text", automation::no_id, [](Self& self) { return self.driver().text(); },
         [](Self& self, const Text& given) { self.driver().type(given); }},
        {u"Visible", automation::no_id, Use::get, driven<Self, &ControlDriver::visible>},
        {u"Enabled", automation::no_id, Use::get, driven<Self, &ControlDriver::enabled>},
        {u"ToolTip", automation::no_id, Use::get, driven<Self, &ControlDriver::tool_tip>},
        {u"Click", automation::no_id, Use::method, driven<Self, &ControlDriver::click>},
        {u"DoubleClick", automation::no_id, Use::method, driven<Self, &ControlDriver::double_click>},
        {u"Key", automation::no_id, Use::method, {u"Code"}, key<Self>},
        {u"Count", automation::no_id, Use::get, [](Self& self) { return self.with_entries().count(); }},
        {u"Item", automation::no_id, Use::method, {u"Index"}, calls<&Self::item>},
        {u"Selected", automation::no_id, Use::get, calls<&Self::selected>},
        {u"Select", automation::no_id, Use::method, {u"Index"}, calls<&Self::select>},
        {u"Columns", automation::no_id, Use::get, calls<&Self::columns>},
        {u"ColumnClick", automation::no_id, Use::method, {u"Index"}, calls<&Self::column_click>},
        {u"Drop",
         automation::no_id,
         Use::method,
         {u"Row", u"Column"},
         [](Self& self, std::int32_t row, std::optional<std::int32_t> column) {
             self.drop(row, column.value_or(1));
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
        {u"Text", automation::no_id, Use::get, calls<&Self::text>},
        {u"SubItems", automation::no_id, Use::get, {u"Index"}, calls<&Self::sub_item>},
    };
    return table;
}

}  // namespace desk
