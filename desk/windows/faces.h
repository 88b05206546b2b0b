// The faces of buttons on command bars, drawn by their numbers.
#pragma once

#include <cstdint>
#include <map>

#include "forms/windows/drawing.h"

namespace desk {

/// The images of the faces at the screen's resolution; each is made once, for all windows. A number that has
/// no drawing gets a plain one.
class Faces {
  public:
    Faces();

    HIMAGELIST images() const { return images_.get(); }
    int image(std::int32_t face_id) const;  ///< its place in the images
    int size() const { return size_; }      ///< pixels, width and height

  private:
    int size_;
    windows::ImageListHandle images_;
    std::map<std::int32_t, int> places_;
};

}  // namespace desk
