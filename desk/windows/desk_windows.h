// The windows that a person sees: they follow the model.
#pragma once

#include <functional>
#include <map>
#include <memory>

#include "desk/base/desk.h"
#include "desk/windows/host_frame.h"

namespace desk {

class ExplorerWindow;
class InspectorWindow;
class Inspector;

class DeskWindows {
  public:
    /// The module counts what the system holds of ours.
    DeskWindows(Desk& desk, windows::Module& module);

    /// How the windows are arranged, as one line of text: before they open, and after they have been closed.
    void arrange(automation::TextView layout);
    automation::Text arrangement() const;
    ~DeskWindows();

    /// Opens windows for explorers and inspectors that have none, closes those whose object is closed, and
    /// shows in the others what the model holds.
    void follow();
    void close_all();

    /// What the entry "Try This" of the main windows does.
    void on_first_page(std::function<void()> show) { context_.show_first_page = std::move(show); }

  private:
    void place(Explorer& explorer);

    FrameContext context_;
    bool is_arranged_ = false;  ///< the next main window takes the place of the one before
    std::map<std::shared_ptr<Explorer>, std::unique_ptr<ExplorerWindow>> explorers_;
    std::map<std::shared_ptr<Inspector>, std::unique_ptr<InspectorWindow>> inspectors_;
};

}  // namespace desk
