// The desk's surroundings under Wine.
#pragma once

#include <functional>

#include "automation/com/apartment.h"
#include "desk/com/indexed_folder.h"
#include "desk/com/mail_process.h"
#include "desk/setup/desk_settings.h"

namespace desk {

/// What only the windows and the main program can do, told to them.
struct DeskHooks {
    std::function<void()> wake;
    std::function<void(std::function<void()>)> post;
    std::function<void(std::int32_t milliseconds)> pump;
    std::function<void()> changed;
    std::function<void()> came_up;
    std::function<void()> quit;
    std::function<void(automation::TextView prog_id, bool connect)> connect_add_in;
};

class DeskSurroundings : public Surroundings {
  public:
    DeskSurroundings(const DeskSettings& settings, std::shared_ptr<windows::Apartment> apartment)
        : apartment_(std::move(apartment)),
          mail_process_(settings.mail_reader, settings.state, [this](std::int32_t time) { pump(time); }),
          indexed_folder_(settings.indexed_folder) {}

    DeskHooks hooks;

    automation::Date now() override;
    automation::Date to_utc(automation::Date local) override;
    DateManners date_manners() override;
    automation::Text list_separator() override;
    std::string random_bytes(std::size_t count) override;
    ItemData read_mail(automation::TextView path) override;
    automation::Text page_text(automation::TextView html) override;
    void wake() override;
    void post(std::function<void()> action) override;
    void pump(std::int32_t milliseconds) override;
    std::unique_ptr<WindowDriver> window(automation::TextView caption) override;
    int ask(automation::TextView text, automation::TextView title, std::uint32_t style) override;
    automation::Object create_object(automation::TextView prog_id) override;
    bool has_class(automation::TextView prog_id) override;
    std::vector<IndexedFile> indexed_files() override { return files_below(indexed_folder_); }
    std::vector<StartedProgram> programs() override;
    std::vector<automation::Text> opened() override;
    std::vector<LiveCount> live() override;
    std::vector<CallCount> calls() override;
    void reset_calls() override;
    void snapshot(automation::TextView path) override;
    void connect_add_in(automation::TextView prog_id, bool connect) override;
    void quit() override;
    void changed() override;
    void came_up() override;
    void remember_option(automation::TextView name, automation::TextView value) override;

  private:
    std::shared_ptr<windows::Apartment> apartment_;
    MailProcess mail_process_;
    automation::Text indexed_folder_;
};

}  // namespace desk
