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

struct KnownNames : desk::filter::Host {
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
        u"Topic",
        u"Unset Date",
        u"Unset Number",
        u"Unset Mark",
        u"Keywords",
        u"Body",
    };
    bool knows(automation::TextView field) const override { return names.contains(automation::Text(field)); }
    bool knows_address(automation::TextView address) const override { return address != u"no such name"; }
    bool takes(automation::TextView field) const override { return field != u"Body"; }
    desk::filter::Content content(automation::TextView name, bool) const override {
        using desk::filter::Content;
        const std::map<automation::Text, Content, IgnoringCase> known{
            {u"UnRead", Content::yes_no},     {u"Size", Content::number},
            {u"Amount", Content::number},     {u"ReceivedTime", Content::date},
            {u"AccountID", Content::text},    {u"Topic", Content::subject},
            {u"Unset Date", Content::date},   {u"Unset Number", Content::number},
            {u"Unset Mark", Content::yes_no}, {u"Keywords", Content::keywords}};
        const auto found = known.find(automation::Text(name));
        return found == known.end() ? Content::anything : found->second;
    }
    std::optional<std::int32_t> named_number(automation::TextView, bool,
                                             automation::TextView text) const override {
        return text == u"Half" ? std::optional(512) : std::nullopt;
    }
    std::optional<automation::Date> date_of(automation::TextView text) const override {
        return automation::read_date(text);
    }
    automation::Date now() const override { return automation::to_date({2026, 3, 4, 9, 15, 0}); }
    automation::Date to_utc(automation::Date local) const override {
        return {local.days - 2.0 / 24};  // two hours east of Greenwich
    }
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
        {u"Topic", u"Re: Offer of May"},
        {u"Keywords", u"Tier1 Partner, Big Red, Car"},
    };
    record.properties = {
        {u"urn:schemas:httpmail:subject", u"100% of under_scores, Jane-Anne O'Brien"},
        {u"http://schemas.microsoft.com/mapi/proptag/0x001a001e", u"IPM.Contact"},
        {u"size", std::int32_t{512}},
        {u"unread", true},
        {u"topic", u"Re: Offer of May"},
        {u"keywords", u"Tier1 Partner, Big Red, Car"},
        {u"empty", automation::Value()},
        {u"blank", u""},
    };
    return record;
}

}  // namespace filter_tests
