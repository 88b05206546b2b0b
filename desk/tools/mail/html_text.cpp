#include "desk/tools/mail/html_text.h"

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace desk::mail {
namespace {

using automation::Text;
using automation::TextView;

constexpr bool is_blank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n' || c == u'\f';
}

constexpr std::size_t longest_name = 16;  ///< of the elements that are known

constexpr bool is_letter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

/// What an element does to the lines around it.
enum class Layout { block, paragraph, line_break, entry, cell, link, verbatim, hidden };
struct Element {
    std::string_view name;
    Layout layout;
};
constexpr std::array<Element, 33> elements = {{
    {"div", Layout::block},        {"tr", Layout::block},        {"table", Layout::block},
    {"ul", Layout::block},         {"ol", Layout::block},        {"dl", Layout::block},
    {"dt", Layout::block},         {"dd", Layout::block},        {"hr", Layout::block},
    {"blockquote", Layout::block}, {"section", Layout::block},   {"article", Layout::block},
    {"header", Layout::block},     {"footer", Layout::block},    {"center", Layout::block},
    {"p", Layout::paragraph},      {"h1", Layout::paragraph},    {"h2", Layout::paragraph},
    {"h3", Layout::paragraph},     {"h4", Layout::paragraph},    {"h5", Layout::paragraph},
    {"h6", Layout::paragraph},     {"br", Layout::line_break},   {"li", Layout::entry},
    {"td", Layout::cell},          {"th", Layout::cell},         {"a", Layout::link},
    {"pre", Layout::verbatim},     {"script", Layout::hidden},   {"style", Layout::hidden},
    {"title", Layout::hidden},     {"noscript", Layout::hidden}, {"template", Layout::hidden},
}};

std::optional<Layout> layout_of(const xmlChar* name) {
    const auto found = std::ranges::find(elements, reinterpret_cast<const char*>(name), &Element::name);
    return found == elements.end() ? std::nullopt : std::optional(found->layout);
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

/// What the parser finds, as it finds it: no tree is made, which a page could make too deep to walk.
class Page {
  public:
    explicit Page(htmlParserCtxt& parser) : parser_(parser) {}

    void start(const xmlChar* name, const xmlChar** attributes) {
        if (++depth_ > most_nested_elements) {
            too_deep_ = true;
            return xmlStopParser(&parser_);
        }
        const auto layout = layout_of(name);
        if (layout == Layout::hidden) ++hidden_;
        if (!layout || hidden_ > 0) return;
        switch (*layout) {
            case Layout::block:
                return lines_.end_line(1);
            case Layout::paragraph:
                return lines_.end_line(2);
            case Layout::line_break:
                return lines_.break_line();
            case Layout::entry:
                lines_.end_line(1);
                return lines_.add(u"* ", false);
            case Layout::link:
                link_ = address(attributes);
                return link_words_.clear();
            case Layout::verbatim:
                ++verbatim_;
                return lines_.end_line(1);
            case Layout::cell:
            case Layout::hidden:
                return;
        }
    }

    void end(const xmlChar* name) {
        --depth_;
        const auto layout = layout_of(name);
        if (layout == Layout::hidden) --hidden_;
        if (!layout || hidden_ > 0) return;
        switch (*layout) {
            case Layout::block:
            case Layout::entry:
                return lines_.end_line(1);
            case Layout::paragraph:
                return lines_.end_line(2);
            case Layout::cell:
                return lines_.tab();
            case Layout::link:
                return close_link();
            case Layout::verbatim:
                --verbatim_;
                return lines_.end_line(1);
            case Layout::line_break:
            case Layout::hidden:
                return;
        }
    }

    void words(std::string_view utf8) {
        if (hidden_ > 0) return;
        Text words = automation::from_utf8(utf8);
        std::ranges::replace(words, u'\u00A0', u' ');
        lines_.add(words, verbatim_ > 0);
        if (!link_.empty()) link_words_ += words;
    }

    bool too_deep() const { return too_deep_; }
    Text take() { return lines_.take(); }

  private:
    static Text address(const xmlChar** attributes) {
        for (; attributes && *attributes; attributes += 2) {
            if (std::string_view(reinterpret_cast<const char*>(*attributes)) != "href") continue;
            return attributes[1] ? automation::from_utf8(reinterpret_cast<const char*>(attributes[1]))
                                 : Text();
        }
        return {};
    }

    void close_link() {
        const Text link = std::exchange(link_, {});
        const bool leads_out = link.starts_with(u"http:") || link.starts_with(u"https:");
        if (leads_out && !contains(link_words_, link)) lines_.add(u" <" + link + u">", false);
    }

    htmlParserCtxt& parser_;
    Lines lines_;
    std::size_t depth_ = 0;
    int hidden_ = 0, verbatim_ = 0;  ///< how many such elements are open
    bool too_deep_ = false;
    Text link_, link_words_;
};

struct FreeParser {
    void operator()(htmlParserCtxt* parser) const { htmlFreeParserCtxt(parser); }
};

/// The parser's calls, each of which has a page as its first argument.
xmlSAXHandler handlers() {
    xmlSAXHandler calls = {};
    calls.initialized = XML_SAX2_MAGIC;
    calls.startElement = [](void* page, const xmlChar* name, const xmlChar** attributes) {
        static_cast<Page*>(page)->start(name, attributes);
    };
    calls.endElement = [](void* page, const xmlChar* name) { static_cast<Page*>(page)->end(name); };
    calls.characters = [](void* page, const xmlChar* words, int length) {
        static_cast<Page*>(page)->words(
            {reinterpret_cast<const char*>(words), static_cast<std::size_t>(length)});
    };
    calls.ignorableWhitespace = calls.characters;
    // a number that is no character; what stands in the page itself has been made fit before
    calls.serror = [](void* page, auto* error) {
        if (error->code == XML_ERR_INVALID_CHAR) static_cast<Page*>(page)->words("\uFFFD");
    };
    return calls;
}

/// A page in which a tag with so many attributes that comparing each with each other would take long has
/// none.
Text with_short_tags(TextView html) {
    Text page;
    page.reserve(html.size());
    std::size_t separators = 0, name_end = 0;
    char16_t quote = 0, before = 0, before_blanks = 0;
    bool in_tag = false, in_name = false, cut = false;
    for (const char16_t unit : html) {
        if (!in_tag) {
            in_tag = in_name = before == u'<' && is_letter(unit);
            cut = false;
            separators = 0;
        } else if (is_blank(unit) || unit == u'"' || unit == u'\'') {
            if (in_name) name_end = page.size();
            in_name = false;
            if (++separators > most_separators && !cut) {
                page.resize(name_end);
                cut = true;
            }
        }
        if (quote) {
            if (unit == quote) quote = 0;
        } else if (in_tag && before_blanks == u'=' && (unit == u'"' || unit == u'\'')) {
            quote = unit;
        } else if (unit == u'>') {
            in_tag = cut = false;
        }
        if (!cut) page += unit;
        before = unit;
        if (!is_blank(unit)) before_blanks = unit;
    }
    return page;
}

/// A page without elements inside each other: those that end a line are line breaks, what is between others
/// stays words. Scripts and styles stay what they are, since nobody sees them.
Text flattened(TextView html) {
    Text page;
    for (std::size_t at = 0; at < html.size();) {
        const std::size_t tag = std::min(html.find(u'<', at), html.size());
        page += html.substr(at, tag - at);
        std::size_t name = tag + 1;
        if (name < html.size() && html[name] == u'/') ++name;
        if (name >= html.size() || !is_letter(html[name])) {
            page += html.substr(tag, 1);
            at = tag + 1;
            continue;
        }
        std::size_t name_end = name;
        while (name_end < html.size() && !is_blank(html[name_end]) && html[name_end] != u'>' &&
               html[name_end] != u'/')
            ++name_end;
        const std::size_t end = std::min(html.find(u'>', name_end), html.size() - 1) + 1;
        std::string low =
            automation::to_utf8(html.substr(name, std::min<std::size_t>(name_end - name, longest_name)));
        std::ranges::transform(low, low.begin(),
                               [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; });
        const auto element = std::ranges::find(elements, std::string_view(low), &Element::name);
        if (low == "script" || low == "style") {
            page += html.substr(tag, end - tag);
        } else if (element != elements.end() && element->layout != Layout::link &&
                   element->layout != Layout::hidden) {
            page += element->layout == Layout::cell ? u" " : u"<br>";
        }
        at = end;
    }
    return page;
}

/// A page without what the parser takes for words or leaves out, and a browser does not: declarations that
/// are no comments (mailers write many, such as "<![if !mso]>"), and control characters.
Text fit_for_the_parser(TextView html) {
    Text fit = automation::replaced(automation::replaced(html, u"<!", u"<?x "), u"<?x --", u"<!--");
    std::ranges::replace_if(
        fit, [](char16_t unit) { return unit < u' ' && !is_blank(unit); }, u'\uFFFD');
    return fit;
}

/// The text of a page; nothing if its elements are nested too deeply.
std::optional<Text> text_of(TextView html) {
    // inside of a body, words that stand alone are no paragraph
    const std::string page_text = "<html><body>" + automation::to_utf8(html);

    const std::unique_ptr<htmlParserCtxt, FreeParser> parser(htmlNewParserCtxt());
    if (!parser) throw std::bad_alloc();
    Page page(*parser);
    *parser->sax = handlers();
    parser->userData = &page;
    htmlCtxtReadMemory(parser.get(), page_text.data(), static_cast<int>(page_text.size()), nullptr, "UTF-8",
                       HTML_PARSE_NOIMPLIED | HTML_PARSE_RECOVER);
    if (page.too_deep()) return std::nullopt;
    return page.take();
}

}  // namespace

Text html_to_text(TextView html) {
    const Text page = fit_for_the_parser(with_short_tags(html));
    if (auto text = text_of(page)) return *std::move(text);
    return text_of(flattened(page)).value_or(Text());
}

}  // namespace desk::mail
