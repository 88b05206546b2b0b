// A folder and an item as a filter sees them, for the tests of filters.
#pragma once

#include <map>
#include <set>

#include "desk/filter/filter.h"

namespace filter_tests {

struct IgnoringCase {
    bool operator()(automation::TextView left, automation::TextView right) const {
        return automation::compare_ignoring_case(left, right) < 0;
    }
};

struct KnownNames : desk::filter::Names {
    std::set<automation::Text, IgnoringCase> names{
        u"Subject",
        u"FullName",
        u"EmailSearchString",
        u"Email1Address",
        u"Email2Address",
        u"Email3Address",
        u"FileAs",
        u"CompanyName",
        u"FirstName",
        u"LastName",
        u"Message Class",
        u"UnRead",
        u"Size",
        u"ReceivedTime",
        u"Email1DisplayName",
        u"Account Name",
        u"AccountID",
        u"Amount",
        u"Email2DisplayName",
        u"Email3DisplayName",
    };
    bool knows(automation::TextView field) const override { return names.contains(automation::Text(field)); }
};

struct MapRecord : desk::filter::Record {
    std::map<automation::Text, automation::Value, IgnoringCase> fields;
    std::map<automation::Text, automation::Value, IgnoringCase> properties;

    std::optional<automation::Value> field(automation::TextView name) const override {
        return find(fields, name);
    }
    std::optional<automation::Value> property(automation::TextView address) const override {
        return find(properties, address);
    }

  private:
    static std::optional<automation::Value> find(
        const std::map<automation::Text, automation::Value, IgnoringCase>& map, automation::TextView name) {
        const auto found = map.find(automation::Text(name));
        return found == map.end() ? std::nullopt : std::optional(found->second);
    }
};

/// A contact's record with values of every type.
inline MapRecord jane() {
    MapRecord record;
    record.fields = {
        {u"Subject", u"Jane O'Brien"},
        {u"FullName", u"Jane O'Brien"},
        {u"Email1Address", u"jane@one.example"},
        {u"CompanyName", u"Acme \"Best\" Ltd"},
        {u"UnRead", true},
        {u"Size", std::int32_t{512}},
        {u"Amount", 12.5},
        {u"ReceivedTime", *automation::read_date(u"2026-03-03 09:15:00")},
        {u"Account Name", u"Acme"},
    };
    record.properties = {
        {u"urn:schemas:httpmail:subject", u"100% of under_scores, Jane-Anne O'Brien"},
        {u"http://schemas.microsoft.com/mapi/proptag/0x001a001e", u"IPM.Contact"},
        {u"size", std::int32_t{512}},
        {u"empty", automation::Value()},
        {u"blank", u""},
    };
    return record;
}

}  // namespace filter_tests
