// What GMime and GLib hand out, owned by types.
#pragma once

#include <gmime/gmime.h>

#include <memory>
#include <string>

namespace desk::mail {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <class T>
using ObjectOf = std::unique_ptr<T, Unref>;

struct Free {
    void operator()(void* memory) const { g_free(memory); }
};
using CString = std::unique_ptr<char, Free>;

struct FreeOptions {
    void operator()(GMimeParserOptions* options) const { g_mime_parser_options_free(options); }
};
using ParserOptions = std::unique_ptr<GMimeParserOptions, FreeOptions>;

struct FreeDateTime {
    void operator()(GDateTime* time) const { g_date_time_unref(time); }
};
using DateTime = std::unique_ptr<GDateTime, FreeDateTime>;

/// A C text that may be null.
inline std::string to_string(const char* text) { return text ? text : ""; }

}  // namespace desk::mail
