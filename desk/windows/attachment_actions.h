// What a person does with the attachments of an item.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "automation/com/com_object.h"
#include "desk/outlook/item.h"

namespace desk {

/// The files that were written for other programs to open or to take. They go with this.
class OpenedFiles {
  public:
    OpenedFiles() = default;
    ~OpenedFiles();
    OpenedFiles(const OpenedFiles&) = delete;
    OpenedFiles& operator=(const OpenedFiles&) = delete;

    /// Writes a file into a folder of its own and answers its path.
    automation::Text write(const automation::Text& name, std::string_view bytes);

  private:
    std::wstring folder_;  ///< empty until something is written
    int count_ = 0;
};

/// An attachment by its item and its place among the others. The item may have lost it meanwhile.
struct AttachmentPlace {
    std::shared_ptr<Item> item;
    std::size_t place;
};

// Each of them tells the person what it can't do. The owner is disabled while a question stands.

/// An item opens in a window, as a mail file does; any other file by the shell. Programs are refused.
void open_attachment(const AttachmentPlace& attachment, OpenedFiles& files);
void save_attachment(const AttachmentPlace& attachment, HWND owner);
void remove_attachment(const AttachmentPlace& attachment);
void drag_attachment(const AttachmentPlace& attachment, OpenedFiles& files, windows::Module& module);

void attach_chosen_files(const std::shared_ptr<Item>& item, HWND owner);

/// The menu of an attachment, at a place of the screen. What can't be changed has nothing taken away.
void choose_for_attachment(const AttachmentPlace& attachment, HWND owner, POINT place, bool can_change,
                           OpenedFiles& files);

}  // namespace desk
