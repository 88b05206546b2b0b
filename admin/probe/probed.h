// The folder in which a host is asked how it behaves, and what the questions do there.
#pragma once

#include <functional>
#include <string>

#include "addin/host/outlook.h"
#include "admin/machine.h"

namespace admin {

/// Where a belief comes from: the title of a page of the host's public documentation, or one of these.
namespace source {
inline constexpr const char* type_library = "the type library";
inline constexpr const char* believed = "believed";
}  // namespace source

class Probed;

/// A question about the host. It answers in a few words, which are compared with those that are believed;
/// what it throws as a `Failure` is the answer "an error".
struct ProbeQuestion {
    const char* asked;
    const char* believed;
    const char* source;
    std::string (*ask)(Probed& probed);
};

/// A folder of its own below the Inbox. It goes with this, with all that is in it.
class Probed {
  public:
    /// Throws `Failure` if the folder can't be made.
    explicit Probed(Machine& machine);
    Probed(const Probed&) = delete;
    Probed& operator=(const Probed&) = delete;
    ~Probed();

    const host::outlook::Application& host() const { return host_; }
    host::outlook::NameSpace name_space() const { return host_.GetNamespace(u"MAPI"); }
    const host::outlook::Folder& root() const { return root_; }

    /// A fresh folder, for what a default folder of this number is for.
    host::outlook::Folder folder(std::int32_t default_number);
    host::outlook::Folder posts();
    /// Three saved posts "One", "Two" and "O'Hara"; the first has the user property "Probe Name" with the
    /// value "Mill", which the folder knows, and "Probe Item Name", which it doesn't.
    host::outlook::Folder filtered();

    /// A saved post, a saved contact, a saved mail, each in a fresh folder.
    host::outlook::Item post(TextView subject = u"Probe");
    Text own_subject() const { return name_ + u" post"; }  ///< which no item but ours bears
    host::outlook::Item contact();
    host::outlook::Item mail();

    /// Removes the post with the own subject from the deleted items.
    void empty_deleted() const;

    /// Gives the host and its events a turn.
    void turn() const;
    /// The same until the condition holds, for a few seconds at the most.
    void wait_until(const std::function<bool()>& condition) const;

    /// Has the folder removed. Throws `Failure` if that can't be done.
    void remove();

  private:
    host::outlook::Item deleted_post()
        const;  ///< the one with the own subject among the deleted items, or Nothing

    Machine& machine_;
    host::outlook::Application host_;
    host::outlook::Folder root_, filtered_;
    Text name_;
    int folders_ = 0;
    bool removed_ = false;
};

inline std::string yes_or_no(bool yes) { return yes ? "yes" : "no"; }

}  // namespace admin
