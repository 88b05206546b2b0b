// The face of the system's shell object.
#pragma once

#include "automation/face.h"

namespace host {

using namespace automation;  // what the faces are written in

class WshShell : public Face<WshShell> {
  public:
    static constexpr TextView prog_id = u"WScript.Shell";
    static constexpr Kind kind{"WshShell"};
    static constexpr std::int32_t normal_window = 1;
    using Face::Face;

    void CurrentDirectory(TextView folder) const { put(u"CurrentDirectory", folder); }
    void Run(TextView command_line) const { call(u"Run", {Value(command_line)}); }
    void Run(TextView command_line, std::int32_t window_style, bool wait) const {
        call(u"Run", {Value(command_line), window_style, wait});
    }
};

}  // namespace host
