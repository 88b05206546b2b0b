#include "tests/native/shell.h"

#include <algorithm>

namespace native {

using automation::Text;
using automation::Use;

void Shell::run(const Text& command_line) {
    const Text program = command_line.substr(0, command_line.find(u' '));
    const bool is_there = std::ranges::any_of(
        programs_.there, [&](const Text& name) { return automation::same_ignoring_case(name, program); });
    if (!is_there) throw automation::Failure(automation::result::file_not_found, program);
    programs_.started.push_back({command_line, folder_});
}

const automation::Members<Shell>& Shell::members() {
    static const automation::Members<Shell> table{
        {u"CurrentDirectory", automation::no_id, [](Shell& self) { return self.folder_; },
         [](Shell& self, const Text& given) { self.folder_ = given; }},
        {u"Run",
         automation::no_id,
         Use::method,
         {u"Command", u"WindowStyle", u"WaitOnReturn"},
         [](Shell& self, const Text& command, std::optional<std::int32_t>, std::optional<bool>) {
             self.run(command);
             return 0;
         }},
    };
    return table;
}

}  // namespace native
