// Whether a value that becomes a filter stays a value: the filter's terms are those that any other value
// gives.
#pragma once

#include <algorithm>
#include <vector>

#include "addin/filing/address_resolution.h"
#include "addin/records/filters.h"
#include "addin/records/property_filters.h"
#include "addin/searchpanel/panel_filters.h"
#include "desk/filter/filter.h"

namespace fuzz {

using automation::Text;
using automation::TextView;

/// One way in which the add-in makes a filter of a value.
struct Builder {
    const char* name;
    Text (*build)(const Text& value);
    TextView breaks_out;  ///< the signs in a value that end it early: nothing keeps them from it
};

/// The template as the sample company's definitions write it.
inline constexpr TextView filter_template =
    u"[CompanyName] >= '<<mString>>' AND [CompanyName] < '<<UpperLimit>>'";

template <Text (*term)(Text&, TextView)>
Text term_of_subject(const Text& value) {
    Text S = value;
    return term(S, u"Subject");
}

inline Text filled_template(const Text& value) {
    Text S = value;
    return addin::records::TemplateFilter(S, filter_template);
}

template <addin::filing::Variant variant, bool internet>
Text contact_filter_of(const Text& value) {
    return contact_filter(addin::filing::variant_row(variant).terms, internet, {value, value, value});
}

template <bool account>
Text note_filter_of(const Text& value, TextView mode) {
    addin::records::NoteFilterBoxes boxes{.Option1 = account};
    Text S = value;
    return NoteFilter(S, mode, boxes);
}

// The value stands between quotation marks, which have no treatment. A limit ends with the character behind
// the value's last one, which is a quotation mark where that is an exclamation mark.
inline constexpr TextView mark = u"\"", mark_or_before = u"\"!", apostrophes = u"'", none = u"";

// clang-format off
inline constexpr Builder builders[] = {
    {"equality",                  term_of_subject<addin::records::EqualTerm>, mark},
    {"range",                     term_of_subject<addin::records::RangeTerm>, mark_or_before},
    {"note filter of a contact",  [](const Text& value) { return note_filter_of<false>(value, u"Create"); }, mark},
    {"note filter of an account", [](const Text& value) { return note_filter_of<true>(value, u"Create"); }, mark},
    {"note filter of ranges",     [](const Text& value) { return note_filter_of<false>(value, u"Find"); }, mark_or_before},
    {"list definition",           filled_template, none},
    {"sender of a mail",          contact_filter_of<addin::filing::Variant::received, true>, mark},
    {"sender of the directory",   contact_filter_of<addin::filing::Variant::received, false>, mark},
    {"contact of a mail",         contact_filter_of<addin::filing::Variant::tarnwell_launch, false>, mark},
    {"contact to be opened",      [](const Text& value) { return contact_filter(addin::filing::terms_of_open_contact(), false, {value, value, value}); }, mark_or_before},
    {"property",                  [](const Text& value) { return addin::records::equality(u"ContactID", value); }, apostrophes},
    {"key",                       [](const Text& value) { return key_filter(addin::records::FilterForm::like, u"ContactID", value, u"Mill"); }, apostrophes},
    {"key and company",           [](const Text& value) { return key_filter(addin::records::FilterForm::phrase, u"ContactID", u"C-1", value); }, apostrophes},
    {"entry of a drop-down",      [](const Text& value) { return addin::searchpanel::drop_down_filter(addin::records::FilterForm::like, value); }, apostrophes},
    {"definition's name",         [](const Text& value) { return addin::searchpanel::definition_filter(addin::records::FilterForm::like, value); }, apostrophes},
    // as the panel gives them
    {"key and company, doubled",  [](const Text& value) { return key_filter(addin::records::FilterForm::phrase, u"ContactID", u"C-1", automation::replaced(value, u"'", u"''")); }, none},
    {"definition, doubled",       [](const Text& value) { return addin::searchpanel::definition_filter(addin::records::FilterForm::like, automation::replaced(value, u"'", u"''")); }, none},
};
// clang-format on

/// A folder that knows each name, and keeps for each term what it asks for.
class TermNames final : public desk::filter::Host {
  public:
    bool knows(TextView field) const override { return note(field); }
    bool knows_address(TextView address) const override { return note(address); }
    bool takes(TextView) const override { return true; }
    desk::filter::Content content(TextView, bool) const override { return desk::filter::Content::text; }
    std::optional<std::int32_t> named_number(TextView, bool, TextView) const override { return {}; }
    std::optional<automation::Date> date_of(TextView) const override { return {}; }
    automation::Date now() const override { return {}; }
    automation::Date to_utc(automation::Date local) const override { return local; }

    /// The terms of a filter, in their order; nothing if it is refused.
    static std::optional<std::vector<Text>> of(TextView filter) {
        const TermNames host;
        try {
            desk::filter::Filter::parse(filter, host, desk::filter::Words::indexed);
        } catch (const automation::Failure&) {
            return std::nullopt;
        }
        return host.names_;
    }

  private:
    bool note(TextView name) const {
        names_.emplace_back(name);
        return true;
    }

    mutable std::vector<Text> names_;
};

/// Whether the desk reads terms beyond those that are meant; an empty value leaves some out. A filter that is
/// refused finds nothing.
inline bool adds_terms(const Builder& builder, const Text& value) {
    const auto terms = TermNames::of(builder.build(value)), meant = TermNames::of(builder.build(u"x"));
    if (!terms) return false;
    auto next = meant->begin();
    for (const Text& term : *terms) {
        next = std::find(next, meant->end(), term);
        if (next == meant->end()) return true;
        ++next;
    }
    return false;
}

}  // namespace fuzz
