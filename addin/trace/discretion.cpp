#include "addin/trace/discretion.h"

#include <algorithm>
#include <array>
#include <vector>

namespace addin::trace {

using automation::Text;
using automation::TextView;

namespace {

constexpr std::size_t most_heard = 4096, most_words = 20000, longest_line = 200;
constexpr char16_t ellipsis = 0x2026;
constexpr TextView quotes = u"'\"`\u2018\u2019\u201C\u201D\u201E\u00AB\u00BB";

/// Words of which the hosts' failures are made. They are all that is told, so what is anybody's is not among
/// them.
constexpr TextView plain_words[] = {
    u"a",           u"access",     u"activex",     u"an",          u"and",          u"application",
    u"are",         u"argument",   u"arguments",   u"array",       u"at",           u"attachment",
    u"automation",  u"available",  u"bar",         u"be",          u"because",      u"been",
    u"before",      u"busy",       u"by",          u"call",        u"called",       u"can",
    u"cannot",      u"change",     u"changed",     u"class",       u"client",       u"collection",
    u"component",   u"condition",  u"connection",  u"control",     u"could",        u"create",
    u"data",        u"database",   u"deleted",     u"denied",      u"disconnected", u"does",
    u"error",       u"event",      u"exception",   u"exist",       u"exists",       u"expected",
    u"failed",      u"failure",    u"field",       u"file",        u"find",         u"folder",
    u"for",         u"found",      u"from",        u"has",         u"have",         u"host",
    u"in",          u"index",      u"information", u"interface",   u"internal",     u"invalid",
    u"invoke",      u"is",         u"it",          u"item",        u"items",        u"library",
    u"limit",       u"list",       u"made",        u"mail",        u"member",       u"memory",
    u"message",     u"method",     u"mismatch",    u"missing",     u"module",       u"moved",
    u"must",        u"name",       u"network",     u"no",          u"not",          u"null",
    u"number",      u"object",     u"occurred",    u"of",          u"offline",      u"on",
    u"open",        u"operation",  u"or",          u"outlook",     u"parameter",    u"parse",
    u"permission",  u"place",      u"process",     u"program",     u"property",     u"range",
    u"read",        u"registered", u"rejected",    u"remote",      u"required",     u"results",
    u"same",        u"security",   u"server",      u"service",     u"session",      u"set",
    u"specified",   u"started",    u"store",       u"string",      u"such",         u"system",
    u"that",        u"the",        u"there",       u"this",        u"time",         u"to",
    u"too",         u"type",       u"unable",      u"unavailable", u"unexpected",   u"unknown",
    u"unsupported", u"user",       u"valid",       u"value",       u"variable",     u"version",
    u"was",         u"were",       u"while",       u"window",      u"windows",      u"with",
    u"write",       u"wrong",      u"you",         u"your"};
static_assert(std::ranges::is_sorted(plain_words));

bool is_in_word(char16_t unit) {
    constexpr char16_t first_beyond_ascii = 0x80;
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'z') ||
           (unit >= u'A' && unit <= u'Z') ||
           (unit >= first_beyond_ascii && quotes.find(unit) == TextView::npos && unit != ellipsis);
}

bool is_blank(char16_t unit) { return unit <= u' '; }

template <class Do>
void for_each_word(TextView text, Do&& handle) {
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && is_in_word(text[end])) ++end;
        if (end > at) handle(text.substr(at, end - at), at);
        at = std::max(end, at + 1);
    }
}

/// From the first to the last of what belongs together, as one ellipsis.
Text without(TextView text, std::size_t begin, std::size_t end) {
    return Text(text.substr(0, begin)) + ellipsis + Text(text.substr(end));
}

/// An apostrophe within a word opens no quotation.
std::size_t opening_quote(TextView text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (quotes.find(text[at]) != TextView::npos && (at == 0 || !is_in_word(text[at - 1]))) return at;
    }
    return TextView::npos;
}

Text without_quoted(TextView text) {
    const std::size_t begin = opening_quote(text);
    if (begin == TextView::npos) return Text(text);
    const std::size_t last = text.find_last_of(quotes);
    return without(text, begin, last == begin ? text.size() : last + 1);
}

/// Paths and addresses, with the blanks that they may have in them.
Text without_places(TextView text) {
    constexpr TextView marks = u"\\/@";
    const std::size_t first = text.find_first_of(marks);
    if (first == TextView::npos) return Text(text);
    std::size_t begin = first, end = text.find_last_of(marks);
    while (begin > 0 && !is_blank(text[begin - 1])) --begin;
    while (end < text.size() && !is_blank(text[end])) ++end;
    return without(text, begin, end);
}

}  // namespace

void Discretion::hears(TextView said) {
    for_each_word(said.substr(0, most_heard), [&](TextView word, std::size_t) {
        if (words_.size() < most_words) words_.insert(automation::folded(word));
    });
}

bool Discretion::is_private(TextView word) const {
    const Text folded = automation::folded(word);
    if (std::ranges::binary_search(plain_words, TextView(folded))) return false;
    return !open_ || words_.contains(folded);
}

std::string Discretion::said_discreetly(TextView text) const {
    const Text open = open_ ? Text(text) : without_places(without_quoted(text));
    Text said;
    std::size_t copied = 0;
    for_each_word(open, [&](TextView word, std::size_t at) {
        if (!is_private(word)) return;
        said += open.substr(copied, at - copied);
        said += ellipsis;
        copied = at + word.size();
    });
    said += open.substr(copied);
    return on_one_line(said);
}

std::string on_one_line(TextView text) {
    Text line(text.substr(0, longest_line));
    std::ranges::replace_if(
        line, [](char16_t unit) { return unit < u' '; }, u' ');
    if (text.size() > longest_line) line += ellipsis;
    return automation::to_utf8(line);
}

}  // namespace addin::trace
