#include "addin/records/filters.h"

#include <span>

#include "addin/ground/keyed.h"
#include "addin/ground/steps.h"

namespace addin::records {

using automation::Text;
using automation::TextView;

namespace {

constexpr TextView apostrophe = u"'";
constexpr TextView travelling = u"~";  ///< stands for a value's own apostrophe while a text is put together
constexpr TextView quote = u"\"";

/// How the builders differ in making the upper limit.
struct Ending {
    TextView z_suffix;
    bool nine_is_special;
};
constexpr Ending fixed_ending{u"a", false};
constexpr Ending template_ending{u"z", true};

/// What stands at the end of an upper limit in place of the last character.
Text end_piece(char16_t last, const Ending& ending) {
    if (automation::upper(last) == u'Z') return last + Text(ending.z_suffix);
    if (ending.nine_is_special && last == u'9') return u"99";
    return Text(1, static_cast<char16_t>(last + 1));
}

struct Prepared {
    Text end;    ///< the end piece
    Text limit;  ///< the upper limit, made before the value loses its outer apostrophes
};

/// As many characters from a place as there are, as the host's own Mid.
Text middle(const Text& text, std::size_t from, std::size_t count) {
    return from < text.size() ? text.substr(from, count) : Text();
}

/// What all builders do first with the value. An empty one has no last character: it stays empty, and so does
/// its limit.
Prepared prepare(Text& S, const Ending& ending) {
    Prepared prepared;
    if (!S.empty()) {
        prepared.end = end_piece(S.back(), ending);
        prepared.limit = S.substr(0, S.size() - 1) + prepared.end;
    }
    if (S.starts_with(apostrophe)) S = middle(S, 1, automation::trimmed(S).size());
    const std::size_t length = automation::trimmed(S).size();
    const std::size_t first = S.find(apostrophe);
    if (first != Text::npos && first + 1 == length) S = S.substr(0, length - 1);
    S = automation::replaced(S, apostrophe, travelling);
    return prepared;
}

Text travelling_limit(const Prepared& prepared) {
    return automation::replaced(prepared.limit, apostrophe, travelling);
}

/// Gives a finished text its delimiters, and the values their apostrophes.
Text swapped(TextView text) {
    return automation::replaced(automation::replaced(text, apostrophe, quote), travelling, apostrophe);
}

Text joined(std::initializer_list<TextView> pieces) {
    Text text;
    for (const TextView piece : pieces) text += piece;
    return text;
}

constexpr TextView account_term = u"[Subject] = ";
constexpr TextView contact_terms[] = {u"[Subject] = ",       u"[Fullname] = ",      u"[EmailSearchString]= ",
                                      u"[Email1Address] = ", u"[Email2Address] = ", u"[Email3Address] = "};

struct RangeSpelling {
    TextView lower, upper;
};
constexpr RangeSpelling account_range{u"[Subject] >= ", u" AND [Subject] < '"};

/// The file-as field stands here twice, the first time in two spellings; the host matches names without
/// regard to case.
constexpr RangeSpelling contact_ranges[] = {
    {u"[Subject] >= ", u" AND [Subject] < '"},
    {u"[Fileas] >= ", u" AND [FileAs] < '"},
    {u"[Fullname] >= ", u" AND [Fullname] < '"},
    {u"[Fileas] >= ", u" AND [Fileas] < '"},
    {u"[EmailSearchString] >= ", u" AND [EmailSearchString] < '"},
    {u"[CompanyName] >= ", u" AND [CompanyName] < '"},
    {u"[FirstName] >= ", u" AND [FirstName] < '"},
    {u"[LastName] >= ", u" AND [LastName] < '"},
    {u"[Email1Address] >= ", u" AND [Email1Address] < '"},
    {u"[Email2Address] >= ", u" AND [Email2Address] < '"},
    {u"[Email3Address] >= ", u" AND [Email3Address] < '"},
    {u"[Email1DisplayName] >= ", u" AND [Email1DisplayName] < '"},
    {u"[Email2DisplayName] >= ", u" AND [Email2DisplayName] < '"},
    {u"[Email3DisplayName] >= ", u" AND [Email3DisplayName] < '"},
};

/// The named format of the system that shows a field type.
struct FieldFormat {
    TextView field_type, named_format;
};
constexpr FieldFormat field_formats[] = {
    {u"Currency", u"Currency"}, {u"Date", u"Short Date"}, {u"Percent", u"Percent"}};
static_assert(is_keyed(field_formats, &FieldFormat::field_type));

}  // namespace

Text EqualTerm(Text& S, TextView field) {
    prepare(S, fixed_ending);
    return swapped(joined({u"[", field, u"] = ", apostrophe, S, apostrophe}));
}

Text RangeTerm(Text& S, TextView field) {
    const Text limit = travelling_limit(prepare(S, fixed_ending));
    return swapped(joined(
        {u"[", field, u"] >= ", apostrophe, S, apostrophe, u" AND [", field, u"] < '", limit, apostrophe}));
}

Text NoteFilter(Text& S, TextView mode, NoteFilterBoxes& boxes) {
    const Prepared prepared = prepare(S, fixed_ending);
    boxes.Text1 = prepared.end;
    boxes.Text2 = prepared.limit;
    const Text limit = travelling_limit(prepared);

    Text filter;
    const auto add = [&](std::initializer_list<TextView> pieces) {
        if (!filter.empty()) filter += or_between_terms;
        filter += joined(pieces);
    };
    const auto add_range = [&](const RangeSpelling& range) {
        add({range.lower, apostrophe, S, apostrophe, range.upper, limit, apostrophe});
    };
    if (mode == u"Create") {
        if (boxes.Option1) {
            add({account_term, apostrophe, S, apostrophe});
        } else {
            for (const TextView term : contact_terms) add({term, apostrophe, S, apostrophe});
        }
    } else if (boxes.Option1) {
        add_range(account_range);
    } else {
        for (const RangeSpelling& range : contact_ranges) add_range(range);
    }
    return swapped(filter);
}

Text TemplateFilter(Text& S, TextView filter_template) {
    const Text limit = travelling_limit(prepare(S, template_ending));
    return automation::replaced(automation::replaced(filter_template, u"<<mString>>", S), u"<<UpperLimit>>",
                                limit);
}

Text FormatFieldValue(const Text& value, TextView field_type, host::Desktop& desktop,
                      StepObserver* observer) {
    Text shown = value;
    if (value.empty()) return shown;
    const Steps steps(observer);
    for (const FieldFormat& format : field_formats) {
        if (format.field_type == field_type) {
            steps.set(shown, [&] { return desktop.format(value, format.named_format); });
        }
    }
    return shown;
}

Text without_leading_blanks(TextView text) {
    return Text(text.substr(std::min(text.find_first_not_of(u' '), text.size())));
}

}  // namespace addin::records
