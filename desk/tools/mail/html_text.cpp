#include "desk/tools/mail/html_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace desk::mail {
namespace {

using automation::Text;
using automation::TextView;

constexpr bool is_blank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n' || c == u'\f';
}
constexpr bool is_letter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
constexpr bool is_digit(char16_t c) { return c >= u'0' && c <= u'9'; }

struct Entity {
    TextView name;
    char16_t unit;
};
constexpr std::array<Entity, 68> entities = {{
    {u"amp", u'&'},      {u"lt", u'<'},       {u"gt", u'>'},       {u"quot", u'"'},     {u"apos", u'\''},
    {u"nbsp", u' '},     {u"copy", 0x00A9},   {u"reg", 0x00AE},    {u"deg", 0x00B0},    {u"sect", 0x00A7},
    {u"middot", 0x00B7}, {u"laquo", 0x00AB},  {u"raquo", 0x00BB},  {u"pound", 0x00A3},  {u"euro", 0x20AC},
    {u"trade", 0x2122},  {u"bull", 0x2022},   {u"hellip", 0x2026}, {u"ndash", 0x2013},  {u"mdash", 0x2014},
    {u"lsquo", 0x2018},  {u"rsquo", 0x2019},  {u"ldquo", 0x201C},  {u"rdquo", 0x201D},  {u"bdquo", 0x201E},
    {u"times", 0x00D7},  {u"frac12", 0x00BD}, {u"plusmn", 0x00B1}, {u"Auml", 0x00C4},   {u"Ouml", 0x00D6},
    {u"Uuml", 0x00DC},   {u"auml", 0x00E4},   {u"ouml", 0x00F6},   {u"uuml", 0x00FC},   {u"szlig", 0x00DF},
    {u"Agrave", 0x00C0}, {u"Aacute", 0x00C1}, {u"Acirc", 0x00C2},  {u"Aring", 0x00C5},  {u"AElig", 0x00C6},
    {u"Ccedil", 0x00C7}, {u"Eacute", 0x00C9}, {u"Egrave", 0x00C8}, {u"Ntilde", 0x00D1}, {u"Oslash", 0x00D8},
    {u"agrave", 0x00E0}, {u"aacute", 0x00E1}, {u"acirc", 0x00E2},  {u"aring", 0x00E5},  {u"aelig", 0x00E6},
    {u"ccedil", 0x00E7}, {u"egrave", 0x00E8}, {u"eacute", 0x00E9}, {u"ecirc", 0x00EA},  {u"euml", 0x00EB},
    {u"igrave", 0x00EC}, {u"iacute", 0x00ED}, {u"icirc", 0x00EE},  {u"iuml", 0x00EF},   {u"ntilde", 0x00F1},
    {u"ograve", 0x00F2}, {u"oacute", 0x00F3}, {u"ocirc", 0x00F4},  {u"oslash", 0x00F8}, {u"ugrave", 0x00F9},
    {u"uacute", 0x00FA}, {u"ucirc", 0x00FB},  {u"otilde", 0x00F5},
}};

/// What an element does to the lines around it.
enum class Layout { block, paragraph, line_break, entry, cell, link, verbatim, hidden };
struct Element {
    TextView name;
    Layout layout;
};
constexpr std::array<Element, 33> elements = {{
    {u"div", Layout::block},        {u"tr", Layout::block},        {u"table", Layout::block},
    {u"ul", Layout::block},         {u"ol", Layout::block},        {u"dl", Layout::block},
    {u"dt", Layout::block},         {u"dd", Layout::block},        {u"hr", Layout::block},
    {u"blockquote", Layout::block}, {u"section", Layout::block},   {u"article", Layout::block},
    {u"header", Layout::block},     {u"footer", Layout::block},    {u"center", Layout::block},
    {u"p", Layout::paragraph},      {u"h1", Layout::paragraph},    {u"h2", Layout::paragraph},
    {u"h3", Layout::paragraph},     {u"h4", Layout::paragraph},    {u"h5", Layout::paragraph},
    {u"h6", Layout::paragraph},     {u"br", Layout::line_break},   {u"li", Layout::entry},
    {u"td", Layout::cell},          {u"th", Layout::cell},         {u"a", Layout::link},
    {u"pre", Layout::verbatim},     {u"script", Layout::hidden},   {u"style", Layout::hidden},
    {u"title", Layout::hidden},     {u"noscript", Layout::hidden}, {u"template", Layout::hidden},
}};

std::optional<Layout> layout_of(TextView name) {
    const auto found = std::ranges::find_if(
        elements, [&](const Element& element) { return automation::same_ignoring_case(element.name, name); });
    return found == elements.end() ? std::nullopt : std::optional(found->layout);
}

void append_code_point(Text& text, std::uint32_t code) {
    if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) code = 0xFFFD;
    if (code >= 0x10000) {
        text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
        code = 0xDC00 + ((code - 0x10000) & 0x3FF);
    }
    text += static_cast<char16_t>(code);
}

/// Whether a text holds some words; in time that grows with both alone, which `find` does not promise.
bool contains(TextView text, TextView words) {
    if (words.empty() || text.size() < words.size()) return words.empty();
    // of each beginning of the words, how much of its end is a beginning of the words again
    std::vector<std::size_t> again(words.size(), 0);
    const auto follow = [&](std::size_t matched, char16_t unit) {
        while (matched > 0 && words[matched] != unit) matched = again[matched - 1];
        return words[matched] == unit ? matched + 1 : matched;
    };
    for (std::size_t i = 1; i < words.size(); ++i) again[i] = follow(again[i - 1], words[i]);
    std::size_t matched = 0;
    for (const char16_t unit : text) {
        matched = follow(matched, unit);
        if (matched == words.size()) return true;
    }
    return false;
}

/// Lines in the making: runs of blanks become one, and blocks ask for line ends that are only written before
/// words.
class Lines {
  public:
    /// At least so many line ends before the next words; 2 leave an empty line.
    void end_line(int count) {
        if (!text_.empty()) wanted_ = std::max(wanted_, count);
        blank_ = false;
    }
    void break_line() {
        if (text_.empty()) return;
        ++wanted_;
        blank_ = false;
    }
    void add(TextView words, bool verbatim) {
        for (const char16_t unit : words) {
            if (verbatim && unit == u'\n') {
                break_line();
            } else if (!verbatim && is_blank(unit)) {
                blank_ = true;
            } else if (unit != u'\r') {
                put(unit);
            }
        }
    }
    void tab() {
        if (!at_line_start()) tab_ = true;
        blank_ = false;
    }
    Text take() { return std::move(text_); }

  private:
    bool at_line_start() const { return text_.empty() || wanted_ > 0 || text_.back() == u'\n'; }
    void put(char16_t unit) {
        const bool start = at_line_start();
        for (; wanted_ > 0; --wanted_) text_ += u"\r\n";
        if (!start && (tab_ || blank_)) text_ += tab_ ? u'\t' : u' ';
        blank_ = tab_ = false;
        text_ += unit;
    }

    Text text_;
    int wanted_ = 0;
    bool blank_ = false;
    bool tab_ = false;
};

class Reader {
  public:
    explicit Reader(TextView html) : html_(html) {}

    Text run() {
        while (at_ < html_.size()) {
            if (html_[at_] == u'<' && starts_tag()) {
                read_tag();
            } else {
                read_words();
            }
        }
        return lines_.take();
    }

  private:
    bool starts_tag() const {
        const char16_t next = at_ + 1 < html_.size() ? html_[at_ + 1] : u' ';
        return is_letter(next) || next == u'/' || next == u'!' || next == u'?';
    }

    void read_words() {
        const std::size_t end = std::min(html_.find(u'<', at_ + 1), html_.size());
        lines_.add(decoded(html_.substr(at_, end - at_)), verbatim_);
        at_ = end;
    }

    void read_tag() {
        if (html_.substr(at_).starts_with(u"<!--")) {
            const std::size_t end = html_.find(u"-->", at_ + 4);
            at_ = end == TextView::npos ? html_.size() : end + 3;
            return;
        }
        const std::size_t end = tag_end();
        TextView tag = html_.substr(at_ + 1, end - at_ - 1);
        at_ = std::min(end + 1, html_.size());
        const bool closing = tag.starts_with(u'/');
        if (closing) tag.remove_prefix(1);
        const auto name_end =
            std::ranges::find_if(tag, [](char16_t c) { return !is_letter(c) && !is_digit(c); });
        const TextView name = tag.substr(0, static_cast<std::size_t>(name_end - tag.begin()));
        if (const auto layout = layout_of(name)) apply(*layout, closing, tag.substr(name.size()), name);
    }

    /// The place of the tag's `>`; one inside a quoted attribute does not count.
    std::size_t tag_end() const {
        char16_t quote = 0;
        for (std::size_t i = at_ + 1; i < html_.size(); ++i) {
            const char16_t c = html_[i];
            if (quote) {
                if (c == quote) quote = 0;
            } else if (c == u'>') {
                return i;
            } else if ((c == u'"' || c == u'\'') && html_[i - 1] == u'=') {
                quote = c;
            }
        }
        return html_.size();
    }

    void apply(Layout layout, bool closing, TextView attributes, TextView name) {
        switch (layout) {
            case Layout::block:
                return lines_.end_line(1);
            case Layout::paragraph:
                return lines_.end_line(2);
            case Layout::line_break:
                return lines_.break_line();
            case Layout::entry:
                lines_.end_line(1);
                if (!closing) lines_.add(u"* ", false);
                return;
            case Layout::cell:
                if (closing) lines_.tab();
                return;
            case Layout::link:
                return closing ? close_link() : open_link(attributes);
            case Layout::verbatim:
                lines_.end_line(1);
                verbatim_ = !closing;
                return;
            case Layout::hidden:
                if (!closing) skip_content(name);
        }
    }

    /// Goes on behind the closing tag of an element whose content nobody sees.
    void skip_content(TextView name) {
        for (std::size_t end = html_.find(u"</", at_); end != TextView::npos;
             end = html_.find(u"</", end + 2)) {
            if (!automation::same_ignoring_case(html_.substr(end + 2, name.size()), name)) continue;
            at_ = end;
            return;
        }
        at_ = html_.size();
    }

    void open_link(TextView attributes) {
        link_ = decoded(attribute(attributes, u"href"));
        link_start_ = at_;
    }

    void close_link() {
        const Text link = std::exchange(link_, {});
        const bool leads_out = link.starts_with(u"http:") || link.starts_with(u"https:");
        if (!leads_out || contains(html_.substr(link_start_, at_ - link_start_), link)) return;
        lines_.add(u" <" + link + u">", false);
    }

    static TextView attribute(TextView attributes, TextView name) {
        for (std::size_t at = 0; at + name.size() < attributes.size(); ++at) {
            if (!is_blank(attributes[at]) ||
                !automation::same_ignoring_case(attributes.substr(at + 1, name.size()), name)) {
                continue;
            }
            TextView value = attributes.substr(at + 1 + name.size());
            if (!value.starts_with(u'=')) continue;
            value.remove_prefix(1);
            const bool quoted = value.starts_with(u'"') || value.starts_with(u'\'');
            const TextView end = quoted ? value.substr(0, 1) : TextView(u" ");
            if (quoted) value.remove_prefix(1);
            return value.substr(0, value.find(end));
        }
        return {};
    }

    /// Words with their entities replaced; one that is not known stays as it is written.
    static Text decoded(TextView words) {
        Text text;
        while (!words.empty()) {
            const std::size_t start = std::min(words.find(u'&'), words.size());
            text += words.substr(0, start);
            words.remove_prefix(start);
            if (words.empty()) break;
            const std::size_t end = words.substr(0, 12).find(u';');
            if (end == TextView::npos || !append_entity(text, words.substr(1, end - 1))) {
                text += u'&';
                words.remove_prefix(1);
            } else {
                words.remove_prefix(end + 1);
            }
        }
        return text;
    }

    static bool append_entity(Text& text, TextView name) {
        if (name.starts_with(u'#')) return append_number(text, name.substr(1));
        const auto found = std::ranges::find(entities, name, &Entity::name);
        if (found == entities.end()) return false;
        text += found->unit;
        return true;
    }

    static bool append_number(Text& text, TextView digits) {
        const bool hexadecimal = digits.starts_with(u'x') || digits.starts_with(u'X');
        if (hexadecimal) digits.remove_prefix(1);
        if (digits.empty()) return false;
        std::uint32_t code = 0;
        for (const char16_t digit : digits) {
            const char16_t low = automation::lower(digit);
            const bool letter = hexadecimal && low >= u'a' && low <= u'f';
            if (!is_digit(digit) && !letter) return false;
            const auto value = static_cast<std::uint32_t>(letter ? low - u'a' + 10 : digit - u'0');
            code = std::min<std::uint32_t>(code * (hexadecimal ? 16 : 10) + value, 0x110000);
        }
        append_code_point(text, code == 0xA0 ? u' ' : code);
        return true;
    }

    TextView html_;
    std::size_t at_ = 0;
    Lines lines_;
    bool verbatim_ = false;
    Text link_;
    std::size_t link_start_ = 0;
};

}  // namespace

Text html_to_text(TextView html) { return Reader(html).run(); }

}  // namespace desk::mail
