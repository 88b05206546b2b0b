#include "tests/native/shell.h"

#include <algorithm>

namespace native {

using automation::Arguments;
using automation::Takes;
using automation::Text;
using automation::Use;
using automation::Value;

void Shell::run(const Text& command_line) {
    const Text program = command_line.substr(0, command_line.find(u' '));
    const bool is_there = std::ranges::any_of(
        programs_.there, [&](const Text& name) { return automation::same_ignoring_case(name, program); });
    if (!is_there) throw automation::Failure(automation::result::file_not_found, program);
    programs_.started.push_back({command_line, folder_});
}

const automation::Members<Shell>& Shell::members() {
    static const automation::Members<Shell> table{
        {u"CurrentDirectory", automation::no_id, Use::get_put,
         [](Shell& self, const Arguments& a) {
             if (a.is_put()) self.folder_ = a.assigned().to_text();
             return Value(self.folder_);
         }},
        {u"Run",
         automation::no_id,
         Use::method,
         {{u"Command", Takes::text},
          {u"WindowStyle", Takes::integer, true},
          {u"WaitOnReturn", Takes::boolean, true}},
         [](Shell& self, const Arguments& a) {
             self.run(a[0].to_text());
             return Value(0);
         }},
    };
    return table;
}

}  // namespace native
