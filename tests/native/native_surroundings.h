// Where the desk's model lives in a native test.
#pragma once

#include <functional>

#include "desk/model/surroundings.h"
#include "tests/native/boundary.h"
#include "tests/native/shell.h"

namespace native {

class NativeSurroundings final : public desk::Surroundings {
  public:
    NativeSurroundings(Boundary& boundary, const Programs& programs)
        : boundary_(boundary), programs_(programs) {}

    /// What the model asks for and only the whole world can do.
    std::function<void()> run_message_loop = [] {};
    std::function<host::Object(host::TextView)> make_object;
    std::function<void(host::TextView prog_id, bool connect)> connect;
    std::function<void(host::TextView name, host::TextView value)> remember;

    bool quit_asked = false;  ///< the host was told to end
    int wakes = 0;            ///< how often events began to wait

    host::Date now() override;
    std::string random_bytes(std::size_t count) override;
    desk::ItemData read_mail(host::TextView path) override;
    void wake() override { ++wakes; }
    void pump(std::int32_t) override { run_message_loop(); }
    host::Object create_object(host::TextView prog_id) override { return make_object(prog_id); }
    std::vector<desk::StartedProgram> programs() override { return programs_.started; }
    std::vector<desk::LiveCount> live() override { return boundary_.live(); }
    std::vector<desk::CallCount> calls() override;
    void reset_calls() override { boundary_.forget_calls(); }
    /// There is no screen: throws `result::not_implemented`.
    void snapshot(host::TextView path) override;
    void connect_add_in(host::TextView prog_id, bool is_to_be) override { connect(prog_id, is_to_be); }
    void quit() override { quit_asked = true; }
    void changed() override {}
    void remember_option(host::TextView name, host::TextView value) override { remember(name, value); }

  private:
    Boundary& boundary_;
    const Programs& programs_;
};

}  // namespace native
