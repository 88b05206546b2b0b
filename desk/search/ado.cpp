#include "desk/search/ado.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/base/kept.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;

namespace {

constexpr std::int32_t state_closed = 0, state_open = 1;  // ObjectStateEnum

Value state(bool is_open) { return is_open ? state_open : state_closed; }

/// The value of a key in a text like "Provider=x;Extended Properties='a=b;c';"; empty if it isn't there.
Text part_of(TextView connection_string, TextView key) {
    while (!connection_string.empty()) {
        char16_t quote = 0;
        std::size_t end = 0;
        for (; end < connection_string.size(); ++end) {
            const char16_t unit = connection_string[end];
            if (quote == 0 && unit == u';') break;
            if (quote == 0 && (unit == u'\'' || unit == u'"')) {
                quote = unit;
            } else if (unit == quote) {
                quote = 0;
            }
        }
        const TextView part = connection_string.substr(0, end);
        const std::size_t sign = part.find(u'=');
        if (sign != TextView::npos &&
            automation::same_ignoring_case(automation::trimmed(part.substr(0, sign)), key)) {
            return automation::trimmed(part.substr(sign + 1));
        }
        connection_string.remove_prefix(std::min(end + 1, connection_string.size()));
    }
    return {};
}

}  // namespace

void AdoConnection::open(const Text& given) {
    if (is_open_) throw Failure(ado_error::object_open, u"The connection is open.");
    if (!given.empty()) connection_string = given;
    const bool is_known = automation::same_ignoring_case(part_of(connection_string, u"Provider"), provider) &&
                          desk().options().instant_search && desk().surroundings().has_class(provider);
    if (!is_known) {
        throw Failure(ado_error::provider_not_found,
                      u"Provider cannot be found. It may not be properly installed.");
    }
    is_open_ = true;
}

void AdoConnection::close() {
    if (!is_open_) throw Failure(ado_error::object_closed, u"The connection is closed.");
    is_open_ = false;
}

const automation::Members<AdoConnection>& AdoConnection::members() {
    static const automation::Members<AdoConnection> table{
        {u"ConnectionString", automation::no_id, [](AdoConnection& self) { return self.connection_string; },
         [](AdoConnection& self, const Text& given) { self.connection_string = given; }},
        {u"State", automation::no_id, Use::get, [](AdoConnection& self) { return state(self.is_open()); }},
        {u"Open",
         automation::no_id,
         Use::method,
         {u"ConnectionString", u"UserID", u"Password", u"Options"},
         [](AdoConnection& self, const std::optional<Text>& connection_string, const std::optional<Text>&,
            const std::optional<Text>&,
            std::optional<std::int32_t>) { self.open(connection_string.value_or(Text())); }},
        {u"Close", automation::no_id, Use::method, calls<&AdoConnection::close>},
    };
    return table;
}

void AdoRecordset::open(const Text& command, const std::optional<Value>& connection) {
    if (is_open_) throw Failure(ado_error::object_open, u"The recordset is open.");
    const auto through = connection && connection->is(Value::Type::object)
                             ? std::dynamic_pointer_cast<AdoConnection>(connection->to_object().target())
                             : nullptr;
    if (!through || !through->is_open()) {
        throw Failure(ado_error::invalid_connection, u"The connection is closed or is none.");
    }
    found_ = search_index(desk(), command);
    place_ = found_.rows.empty() ? -1 : 0;
    is_open_ = true;
}

void AdoRecordset::close() {
    found();
    is_open_ = false;
    found_ = {};
}

const FoundRows& AdoRecordset::found() const {
    if (!is_open_) throw Failure(ado_error::object_closed, u"The recordset is closed.");
    return found_;
}

bool AdoRecordset::at_end() const {
    const std::size_t count = found().rows.size();
    return count == 0 || (place_ >= 0 && static_cast<std::size_t>(place_) >= count);
}

void AdoRecordset::move_to(std::ptrdiff_t place) {
    const auto count = static_cast<std::ptrdiff_t>(found().rows.size());
    if (count == 0 || place < -1 || place > count) {
        throw Failure(ado_error::no_current_record, u"There is no row.");
    }
    place_ = place;
}

std::size_t AdoRecordset::column(const Value& name_or_number) const {
    const std::vector<Text>& columns = found().columns;
    if (!name_or_number.is(Value::Type::text)) {
        const std::int32_t wanted = name_or_number.to_integer();
        if (wanted >= 0 && static_cast<std::size_t>(wanted) < columns.size()) {
            return static_cast<std::size_t>(wanted);
        }
    } else {
        const Text wanted = name_or_number.to_text();
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (automation::same_ignoring_case(columns[i], wanted)) return i;
        }
    }
    throw Failure(ado_error::item_not_found, u"There is no such field.");
}

const Value& AdoRecordset::value(std::size_t column) const {
    if (at_begin() || at_end()) throw Failure(ado_error::no_current_record, u"There is no current row.");
    if (column >= found_.columns.size()) throw Failure(ado_error::item_not_found, u"The field is gone.");
    return found_.rows[static_cast<std::size_t>(place_)][column];
}

const automation::Members<AdoRecordset>& AdoRecordset::members() {
    static const automation::Members<AdoRecordset> table{
        {u"Fields", automation::no_id, Use::get,
         [](AdoRecordset& self) {
             self.found();
             return std::make_shared<AdoFields>(self.desk(), self.shared_from_this())->self();
         }},
        {u"State", automation::no_id, Use::get, [](AdoRecordset& self) { return state(self.is_open()); }},
        {u"BOF", automation::no_id, Use::get,
         [](AdoRecordset& self) {
             self.found();
             return self.at_begin();
         }},
        {u"EOF", automation::no_id, Use::get, calls<&AdoRecordset::at_end>},
        {u"RecordCount", automation::no_id, Use::get,
         [](AdoRecordset& self) { return self.found().rows.size(); }},
        {u"Open",
         automation::no_id,
         Use::method,
         {u"Source", u"ActiveConnection", u"CursorType", u"LockType", u"Options"},
         [](AdoRecordset& self, const Text& source, const std::optional<Value>& active_connection,
            std::optional<std::int32_t>, std::optional<std::int32_t>,
            std::optional<std::int32_t>) { self.open(source, active_connection); }},
        {u"MoveFirst", automation::no_id, Use::method, [](AdoRecordset& self) { self.move_to(0); }},
        {u"MoveNext", automation::no_id, Use::method, [](AdoRecordset& self) { self.move_by(1); }},
        {u"MovePrevious", automation::no_id, Use::method, [](AdoRecordset& self) { self.move_by(-1); }},
        {u"Close", automation::no_id, Use::method, calls<&AdoRecordset::close>},
    };
    return table;
}

const automation::Members<AdoFields>& AdoFields::members() {
    static const automation::Members<AdoFields> table{
        {u"Count", automation::no_id, Use::get,
         [](AdoFields& self) { return self.owner()->found().columns.size(); }},
        {u"Item",
         automation::no_id,
         Use::get,
         {u"Index"},
         [](AdoFields& self, const Value& index) {
             const std::size_t column = self.owner()->column(index);
             return std::make_shared<AdoField>(self.desk(), self.owner(), column)->self();
         }},
    };
    return table;
}

const automation::Members<AdoField>& AdoField::members() {
    static const automation::Members<AdoField> table{
        {u"Name", automation::no_id, Use::get,
         [](AdoField& self) { return self.owner().found().columns.at(self.column); }},
        {u"Value", automation::no_id, Use::get,
         [](AdoField& self) {
             self.owner().found();
             return self.owner().value(self.column);
         }},
    };
    return table;
}

}  // namespace desk
