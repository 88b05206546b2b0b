// The windows that a person sees: they follow the model.
#pragma once

#include <map>
#include <memory>

#include "desk/model/desk.h"

namespace desk {

class ExplorerWindow;
class InspectorWindow;
class Inspector;

class DeskWindows {
  public:
    explicit DeskWindows(Desk& desk);
    ~DeskWindows();

    /// Opens windows for explorers and inspectors that have none, closes those whose object is closed, and
    /// shows in the others what the model holds.
    void follow();
    void close_all();

  private:
    Desk& desk_;
    std::map<const Explorer*, std::unique_ptr<ExplorerWindow>> explorers_;
    std::map<const Inspector*, std::unique_ptr<InspectorWindow>> inspectors_;
};

}  // namespace desk
