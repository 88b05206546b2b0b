// The window of one item: who, what and when above its text.
#pragma once

#include <memory>

#include "desk/model/inspectors.h"
#include "desk/windows/window.h"

namespace desk {

class InspectorWindow : public DeskWindow {
  public:
    InspectorWindow(Desk& desk, std::shared_ptr<Inspector> inspector);
    void refresh();

  private:
    void on_size(int width, int height) override;
    void on_close() override;

    std::shared_ptr<Inspector> inspector_;
    HWND head_, body_;
    host::Text shown_;
};

}  // namespace desk
