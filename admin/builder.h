// One walk over a database by its plan.
#pragma once

#include <functional>

#include "admin/machine.h"
#include "admin/plan.h"
#include "admin/report.h"

namespace admin {

/// A folder of a collection by its name, without regard to case; an empty one if there is none.
host::outlook::Folder child_named(const host::outlook::Folders& folders, TextView name);

/// Compares what is there with the plan, once: `compare` or `make`.
class Builder {
  public:
    /// The root is, or is to be, in the parent. Without a folder of the ini file nobody knows of that file.
    Builder(const Plan& plan, host::outlook::Folder parent, Text ini_folder, Machine& machine)
        : plan_(plan), parent_(std::move(parent)), ini_folder_(std::move(ini_folder)), machine_(machine) {}

    std::vector<Line> compare();  ///< lines of what is missing or wrong

    /// Makes what is missing: a line for each. Throws `Refusal` if that can't be done, and takes back what it
    /// has made.
    std::vector<Line> make();

  private:
    void walk();
    void visit(const PlannedFolder& planned, const host::outlook::Folder& parent, const Text& path);
    host::outlook::Folder make_folder(const PlannedFolder& planned, const host::outlook::Folder& parent);
    void compare_folder(const PlannedFolder& planned, const host::outlook::Folder& folder, const Text& path);
    void compare_field(const PlannedField& field, const host::outlook::Folder& folder, const Text& path);
    void visit_record(const PlannedRecord& record);
    void make_record(const PlannedRecord& record);
    void visit_targets();
    void make_targets(const Text& path, const std::string& before, const std::string& added);
    void take_back() noexcept;

    /// Tells of something that is not there and, if things are to be made, makes it.
    void missing(const std::string& about, const std::string& told, const std::function<void()>& make_it);
    void wrong(const std::string& about, const std::string& told, const std::string& to_do);

    const Plan& plan_;
    host::outlook::Folder parent_;
    Text ini_folder_;
    Machine& machine_;
    bool making_ = false;
    std::vector<Line> lines_;
    host::outlook::Folder system_folder_;      ///< once it is there
    std::vector<std::function<void()>> undo_;  ///< what takes back what was made, the last one first
};

}  // namespace admin
