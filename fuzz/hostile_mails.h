// Mails that are made to hurt their reader, of any size.
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace fuzz {

struct HostileMail {
    const char* name;
    const char* refusal;  ///< of one of two million bytes; empty if it is read
    const char *head, *repeated, *tail;
    const char* before_each = "";  ///< what the pieces begin with, before their number

    std::string of_size(std::size_t size) const {
        std::string mail = head;
        for (std::size_t number = 0; mail.size() < size; ++number) {
            mail += before_each;
            if (*before_each) mail += std::to_string(number);
            mail += repeated;
        }
        return mail + tail;
    }
};

inline constexpr const char* too_many_colons =
    "The mail's field To is no list of addresses: it has more than 1000 colons.";
inline constexpr const char* too_many_parts = "The mail has more than 10000 parts.";
inline constexpr const char* too_many_parameters =
    "The mail's field Content-Type has more than 1000 parameters.";
inline constexpr const char* too_deep = "The parts of the mail are nested too deeply.";

inline constexpr std::array<HostileMail, 25> hostile_mails = {{
    {"nested groups", too_many_colons, "From: a@b.example\nTo: ", "g:", "\n\nHi\n"},
    {"quoted nested groups", too_many_colons, "From: a@b.example\nTo: ", "\"g\":", "\n\nHi\n"},
    {"nested groups over folded lines", too_many_colons, "From: a@b.example\nTo: ", "\n g:", "\n\nHi\n"},
    {"nested groups of a message inside", too_many_colons,
     "From: a@b.example\nContent-Type: message/rfc822\n\nTo: ", "g:", "\n\nHi\n"},
    {"nested groups of a message in a part", too_many_colons,
     "From: a@b.example\nContent-Type: multipart/mixed; boundary=\"x\"\n\n--x\nContent-Type: "
     "Message/RFC822\n\nTo: ",
     "g:", "\n\nHi\n--x--\n"},
    {"nested groups of a message in a digest", too_many_colons,
     "From: a@b.example\nContent-Type: multipart/digest; boundary=x\n\n--x\n\nTo: ", "g:", "\n\nHi\n--x--\n"},
    {"recipients", "The mail has more than 20000 addresses.", "From: a@b.example\nTo: ", "a@b,", "\n\nHi\n"},
    {"prefixes of a subject", "", "From: a@b.example\nSubject: ", "Re: ", "\n\nHi\n"},
    {"encoded words", "", "From: a@b.example\nSubject: ", "=?utf-8?B?w6Q=?= ", "\n\nHi\n"},
    {"open encoded words", "", "From: a@b.example\nX: ", "=?u?B?", " =?=\n\nHi\n"},
    {"parameters", too_many_parameters, "From: a@b.example\nContent-Type: text/plain", "=b", "\n\nHi\n",
     "; a"},
    {"parameters in pieces", too_many_parameters, "From: a@b.example\nContent-Type: text/plain",
     "*=utf-8''%C3", "\n\nHi\n", "; n*"},
    {"parts", too_many_parts, "From: a@b.example\nContent-Type: multipart/mixed; boundary=x\n\n", "--x\n\n",
     "--x--\n"},
    {"parts inside parts", too_deep, "From: a@b.example\n",
     "Content-Type: multipart/mixed; boundary=x\n\n--x\n", "\nHi\n--x--\n"},
    {"messages inside messages", too_many_parts, "From: a@b.example\n",
     "Content-Type: message/rfc822\n\nFrom: a@b.example\n", "\nHi\n"},
    {"letters to be escaped", "",
     "From: a@b.example\nContent-Type: multipart/mixed; boundary=x\n\n--x\nContent-Type: "
     "text/html\n\nHi\n--x\n\n",
     "&", "\n--x--\n"},
    {"scripts without an end", "", "From: a@b.example\nContent-Type: text/html\n\n", "<script></scrip>",
     "\n"},
    {"links without an end", "", "From: a@b.example\nContent-Type: text/html\n\n", "<a href=\"http:x\">",
     "\n"},
    {"elements inside elements", "", "From: a@b.example\nContent-Type: text/html\n\n", "<div>", "\n"},
    {"formats inside paragraphs", "", "From: a@b.example\nContent-Type: text/html\n\n", "<p><b>", "\n", ""},
    {"ends without a beginning", "", "From: a@b.example\nContent-Type: text/html\n\n", "</i></p>", "\n"},
    {"attributes that seem to be behind their tag", "", "From: a@b.example\nContent-Type: text/html\n\n<p",
     "= \">\"", "\n", " a"},
    {"attributes", "", "From: a@b.example\nContent-Type: text/html\n\n<p", "=\"b\"", "\n", " a"},
    {"references", "", "From: a@b.example\nContent-Type: text/html\n\n", "&amp;&#0;&x;", "\n"},
    {"bytes that are no text", "", "From: a@b.example\nContent-Type: text/plain; charset=utf-7\n\n", "+\xFF",
     "\n"},
}};

/// A long body whose pictures stand nowhere in it.
inline std::string mail_of_pictures(std::size_t letters, int pictures) {
    std::string mail = "From: a@b.example\nContent-Type: multipart/mixed; boundary=x\n\n--x\n\n";
    mail += std::string(letters, 'a') + "\n";
    for (int i = 0; i < pictures; ++i) {
        mail += "--x\nContent-ID: <i" + std::to_string(i) + ">\nContent-Type: image/png\n\nx\n";
    }
    return mail + "--x--\n";
}

/// A page of so many elements inside each other, and beyond them ends of what was never begun.
inline std::string mail_of_ends(std::size_t size, std::size_t depth) {
    std::string mail = "From: a@b.example\nContent-Type: text/html\n\n";
    for (std::size_t i = 0; i < depth; ++i) mail += "<i>";
    while (mail.size() < size) mail += "</b>";
    return mail + "\n";
}

}  // namespace fuzz
