// Where windows are tried out: an engine, and a person who sees and uses its windows. The cases are written
// once; one program runs them on windows in memory, one on real ones.
#pragma once

#include <memory>
#include <vector>

#include "forms/form.h"

namespace forms_test {

/// A control of a window, which is found by its caption.
struct Spot {
    automation::TextView window;
    automation::TextView control;
};

/// Each deed answers whether it could be done: not to what is hidden, disabled or behind a modal window.
class Stage {
  public:
    virtual ~Stage() = default;

    virtual forms::Engine& engine() = 0;
    virtual void dots_per_inch(int dots) = 0;  ///< of windows that are made from now on

    virtual bool click(Spot spot) = 0;
    virtual bool type(Spot spot, automation::TextView text) = 0;  ///< in place of what is there
    virtual bool key(Spot spot,
                     int code) = 0;  ///< with the focus moved there; no control: where the focus is
    virtual bool choose(Spot spot, int entry) = 0;
    virtual bool select(Spot spot, int row) = 0;
    virtual bool double_click(Spot spot, int row) = 0;  ///< -1: below the rows
    virtual bool column_click(Spot spot, int column) = 0;
    virtual bool drop(Spot spot, int row) = 0;                                    ///< -1: below the rows
    virtual bool resize(automation::TextView window, int width, int height) = 0;  ///< outer pixels
    virtual bool minimize(automation::TextView window) = 0;
    virtual bool close(automation::TextView window) = 0;
    virtual void activate_host() = 0;  ///< a window of the host's own becomes the active one
    virtual bool activate(automation::TextView window) = 0;

    virtual bool there(automation::TextView window) = 0;  ///< hidden or not
    virtual automation::Text focused(automation::TextView window) = 0;
    virtual bool topmost(automation::TextView window) = 0;
    virtual int mark(Spot list, int column) = 0;  ///< of a heading; -1: none

    /// Runs an action that shows a modal window, and the steps of the person while it waits. Comes back when
    /// the action has ended.
    virtual void modal(const std::function<void()>& action,
                       const std::vector<std::function<void()>>& steps) = 0;
};

/// Made by the program that runs the cases.
std::unique_ptr<Stage> make_stage();

}  // namespace forms_test
