// Readable text of HTML, and text of bytes.
#include <gtest/gtest.h>

#include "desk/tools/mail/html_text.h"
#include "desk/tools/mail/mail_text.h"
#include "tests/unit/support/mail_support.h"

namespace {

struct HtmlCase {
    automation::TextView html, text;
};
const HtmlCase html_cases[] = {
    {u"", u""},
    {u"plain  words\n here", u"plain words here"},
    {u"<p>one</p><p>two</p>", u"one\r\n\r\ntwo"},
    {u"<div>one</div><div>two</div>", u"one\r\ntwo"},
    {u"one<br>two<br/><br>three", u"one\r\ntwo\r\n\r\nthree"},
    {u"<b>bold</b><i> and</i> more", u"bold and more"},
    {u"<ul><li>one</li><li>two</li></ul>after", u"* one\r\n* two\r\nafter"},
    {u"<table><tr><td>a</td><td>b</td></tr><tr><td>c</td></tr></table>", u"a\tb\r\nc"},
    {u"a &lt; b &amp;&amp; c&gt;d &euro;&#8364;&#x20AC; &unknown; &", u"a < b && c>d €€€ &unknown; &"},
    {u"&#128512;&#0;&#xD800;&#99999999;", u"\U0001F600\uFFFD\uFFFD\uFFFD"},
    {u"<a href=\"http://x.example/?a=1&amp;b=2\">the plan</a>", u"the plan <http://x.example/?a=1&b=2>"},
    {u"<a href='http://x.example'>http://x.example</a>", u"http://x.example"},
    {u"<a href=\"mailto:a@b.example\">Ann</a>", u"Ann"},
    {u"<style>p { color: red }</style><script>if (a < b) x();</script>seen", u"seen"},
    {u"<!-- <p>hidden</p> -->seen<!-- to the end", u"seen"},
    {u"<pre>a  b\n  c</pre>d", u"a  b\r\n  c\r\nd"},
    {u"<img alt=\"a > b\">seen", u"seen"},
    {u"1 < 2 and <3", u"1 < 2 and <3"},
    {u"seen<p", u"seen"},
    {u"<title>Page</title><h1>Head</h1>text", u"Head\r\n\r\ntext"},
    {u"&alpha;&Scaron;&nbsp;x", u"\u03B1\u0160 x"},
    {u"<p>one<p>two", u"one\r\n\r\ntwo"},
    {u"<div>one</div>two", u"one\r\ntwo"},
    {u"<a href=http://x.example>the plan</a>", u"the plan <http://x.example>"},
    {u"<!DOCTYPE html><html><head><title>x</title><meta charset=iso-8859-1></head><body>\u00E4</body></html>",
     u"\u00E4"},
    {u"<table><tr><td>a<td>b<tr><td>c</table>d", u"a\tb\r\nc\r\nd"},
    {u"<body>one</body></html>two", u"one\r\n\r\ntwo"},
    {u"<![if !mso]>one<![endif]> <!--[if mso]>two<![endif]--><o:p>three</o:p>", u"one three"},
    {u"<?xml:namespace prefix = o />seen", u"seen"},
    {u"<a title=\"x>\" href=\"http://x.example\"><b>http://x</b>.example</a>", u"http://x.example"},
    {u"<noscript>unseen<p>unseen</p></noscript>seen", u"seen"},
    {u"a\u0001b", u"a\uFFFDb"},
};

TEST(HtmlText, ReadsAsAPersonWouldReadThePage) {
    for (const HtmlCase& each : html_cases) {
        EXPECT_EQ(automation::to_utf8(desk::mail::html_to_text(each.html)), automation::to_utf8(each.text))
            << automation::to_utf8(each.html);
    }
}

automation::Text repeated(automation::TextView piece, int times) {
    automation::Text text;
    for (int i = 0; i < times; ++i) text += piece;
    return text;
}

TEST(HtmlText, IsReadThoughATagHasMoreAttributesThanAnybodyWrites) {
    const automation::Text attributes = repeated(u" a=\"b>\"", 5000);
    EXPECT_EQ(automation::to_utf8(desk::mail::html_to_text(u"<p>one</p><p" + attributes + u">two</p>three")),
              "one\r\n\r\ntwo\r\n\r\nthree");
}

TEST(HtmlText, IsReadThoughItsElementsAreNestedDeeperThanAnybodyNests) {
    const automation::Text page = u"<p>before &lt;</p><style>unseen</style>" + repeated(u"<div><b>", 3000) +
                                  u"inside<br>of it" + repeated(u"</b></div>", 3000) + u"after";
    const std::string text = automation::to_utf8(desk::mail::html_to_text(page));
    EXPECT_TRUE(text.starts_with("before <\r\n")) << text.substr(0, 40);
    EXPECT_NE(text.find("inside\r\nof it"), std::string::npos);
    EXPECT_TRUE(text.ends_with("\r\nafter"));
    EXPECT_EQ(text.find("unseen"), std::string::npos);
}

struct CharsetCase {
    std::string bytes, charset;
    automation::TextView text;
};
const CharsetCase charset_cases[] = {
    {"\xC3\xA4", "utf-8", u"ä"},
    {"\xC3\xA4", "", u"ä"},
    {"\xE4", "", u"ä"},
    {"\xE4\x80", "iso-8859-1", u"ä€"},
    {"\xE4\x80", "US-ASCII", u"ä€"},
    {"\xE4", "utf-8", u"\uFFFD"},
    {"\xBE", "iso-8859-2", u"ž"},
    {"\xF0", "KOI8-R", u"П"},
    {"\x82\xA0", "shift_jis", u"あ"},
    {"\x1B$B$\"\x1B(B", "iso-2022-jp", u"あ"},
    {"a\x81z", "windows-1252", u"a\uFFFDz"},
    {"a\x82", "shift_jis", u"a\uFFFD"},
    {"a\x8F\xA2", "euc-jp", u"a\uFFFD"},
    {"\xE4", "x-nobody-knows", u"ä"},
};

TEST(MailText, DecodesWhatMailersWrite) {
    for (const CharsetCase& each : charset_cases) {
        EXPECT_EQ(automation::to_utf8(desk::mail::decode(each.bytes, each.charset)),
                  automation::to_utf8(each.text))
            << each.charset;
    }
}

TEST(MailText, OfManyPiecesDecodesAsOfOne) {
    constexpr int letters = 10'000;
    for (const bool ends_inside : {false, true}) {
        std::string bytes = "a";  // so that the letters of two bytes stand across the ends of even pieces
        for (int i = 0; i < letters; ++i) bytes += "\xA8\xA6";
        if (ends_inside) bytes += '\xA8';
        automation::Text expected = u"a" + automation::Text(letters, u'\u00E9');
        if (ends_inside) expected += u'\uFFFD';
        EXPECT_TRUE(desk::mail::decode(bytes, "gb2312") == expected) << (ends_inside ? "cut off" : "whole");
    }
}

TEST(MailText, EndsLinesInCrLf) {
    EXPECT_EQ(desk::mail::with_crlf(u"a\nb\r\nc\rd\n\ne"), u"a\r\nb\r\nc\r\nd\r\n\r\ne");
}

}  // namespace
