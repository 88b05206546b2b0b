// The family's picker of accounts as a person has it before himself.
#pragma once

#include "tests/world/world.h"

namespace acceptance {

class AccountPicker {
  public:
    explicit AccountPicker(World& world) : world_(world) {}

    bool is_open() const;
    bool opens() const;  ///< waits until it is shown

    /// How many entries it lists.
    std::int32_t count() const;

    /// Highlights an account by its name and takes it; fails the test if there is none such.
    void choose(automation::TextView account) const;
    void cancel() const;

  private:
    automation::Object control(automation::TextView name) const;

    World& world_;
};

}  // namespace acceptance
