#include "addin/trace/trace.h"

#include "addin/ground/product_version.h"
#include "addin/ground/settings.h"
#include "addin/trace/story.h"
#include "addin/trace/watched_desktop.h"
#include "addin/trace/watched_windows.h"

namespace addin::trace {
namespace {

class Running final : public Trace {
  public:
    Running(host::Desktop& desktop, forms::Engine& engine, const std::shared_ptr<Teller>& teller)
        : teller_(teller), desktop_(desktop, teller), engine_(engine, teller) {}

    StepObserver& observer() override { return *teller_; }
    host::Desktop& desktop() override { return desktop_; }
    forms::Engine& engine() override { return engine_; }

  private:
    std::shared_ptr<Teller> teller_;
    WatchedDesktop desktop_;
    WatchedEngine engine_;
};

std::string heading(const Manner& manner) {
    std::string text = written(now().date) + "  Tarnwell Note";
    char separator = ' ';
    for (const int number : product_version) {
        text += separator + std::to_string(number);
        separator = '.';
    }
    return text + (manner.content ? " is traced, with addresses and subjects\n"
                                  : " is traced, without addresses and subjects\n");
}

}  // namespace

std::unique_ptr<Trace> Trace::switched_on(host::Desktop& desktop, forms::Engine& engine) {
    Settings settings(desktop);
    const auto value = [&](automation::TextView name) {
        return settings.GetKeyValueEx(host::current_user, Settings::own_key_name, name).to_text();
    };
    const automation::Text path = value(setting::trace_file);
    if (path.empty()) return nullptr;
    const Manner manner{.content = value(setting::trace_content) == option_on};
    auto log = std::make_unique<LogFile>(desktop.narrow(path));
    if (!log->write(heading(manner))) return nullptr;
    return std::make_unique<Running>(desktop, engine, std::make_shared<Teller>(std::move(log), now, manner));
}

}  // namespace addin::trace
