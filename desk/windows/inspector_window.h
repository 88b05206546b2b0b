// The window of one item: who, what and when above its text. A mail that isn't sent yet, contacts,
// appointments and tasks can be written in it, the properties of a record, too.
#pragma once

#include <memory>

#include "desk/outlook/inspectors.h"
#include "desk/windows/host_frame.h"

namespace desk {

class InspectorWindow : public HostFrame {
  public:
    InspectorWindow(FrameContext& context, std::shared_ptr<Inspector> inspector);

  private:
    void show_contents() override;
    void lay_out(int top, int width, int height) override;
    void on_own_command(int command, int code) override;

    /// A field that can be typed into.
    struct Field {
        HWND title, edit;
        automation::Text member;
        automation::Text known;  ///< of the model
    };

    RowId shown_folder() const override;

    void add_field(const automation::Text& title, const automation::Text& member);
    automation::Text value_of(const Field& field) const;  ///< as the model has it
    void show_field(Field& field);

    std::shared_ptr<Inspector> inspector_;
    HWND head_ = nullptr;
    std::vector<Field> fields_;  ///< the text last
    std::int64_t version_ = -1;
    bool showing_ = false;
    bool two_columns_ = false;
};

}  // namespace desk
