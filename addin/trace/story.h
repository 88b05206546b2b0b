// One event as a story: what came in, what failed, what decided, how it ended, and how long it took.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "addin/ground/step_observer.h"
#include "addin/trace/discretion.h"
#include "addin/trace/log.h"
#include "automation/watched.h"

namespace addin::trace {

/// When something was, by the clock on the wall and by one that only goes forwards.
struct Moment {
    std::chrono::system_clock::time_point date;
    std::chrono::steady_clock::time_point time;
};
using Clock = std::function<Moment()>;
Moment now();

/// Who had the word.
enum class Turn { add_in, host, waiting };

/// How a story is told.
struct Manner {
    bool content = false;  ///< addresses and subjects, too
};

/// Tells each event to a log when it is over. It is told of steps and calls as they pass. A log that can't be
/// written ends the telling.
class Teller final : public StepObserver, public automation::Watcher {
  public:
    Teller(std::unique_ptr<Log> log, Clock clock, Manner manner);
    ~Teller() override;

    void skipped(const SourcePlace& place, const automation::Failure& failure) noexcept override;
    void decided(const SourcePlace& place, bool answer, const Why& why,
                 const automation::Failure* unanswered) noexcept override;

    void asks(const automation::Request& request) noexcept override;
    void asked(const automation::Request& request, const automation::Value* answer,
               const automation::Failure* failure) noexcept override;
    void tells(const automation::Guid& interface_id, const automation::Request& event) noexcept override;
    void told() noexcept override;

    void entered(std::string_view what) noexcept override;
    void left() noexcept override;

    /// The host, or nobody, has the word until `turns_back`.
    void turns(Turn turn) noexcept;
    void turns_back() noexcept;

  private:
    struct Story;

    template <class Deed>
    void while_told(Deed&& deed) noexcept;
    void begin(std::string what);
    void end();
    void clock_to(Turn turn);
    Story& current();
    void add(std::string line);
    std::string words_of(const automation::Failure& failure) const;
    std::string ending(const Story& story) const;
    void write(const std::string& text);

    std::unique_ptr<Log> log_;  ///< null: the telling has ended
    Clock clock_;
    Manner manner_;
    Discretion discretion_;
    std::vector<Story> stories_;  ///< the one that is told now stands last; the others wait for it
    std::chrono::steady_clock::time_point counted_;
    int number_ = 0;
};

/// Gives the word back at its end.
struct TurnsBack {
    Teller& teller;
    ~TurnsBack() { teller.turns_back(); }
};

/// A place in the code by its name: "filing::find_contact (address_resolution.cpp:196)".
std::string name_of(std::string_view function, std::string_view file, unsigned line);

/// A moment as "2026-03-02T09:15:00.123Z".
std::string written(std::chrono::system_clock::time_point date);

}  // namespace addin::trace
