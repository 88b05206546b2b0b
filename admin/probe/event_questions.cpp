// When a host tells of what was done, and in which order. Each event is waited for a while: a host tells of
// some of them when it comes to it.
#include <algorithm>
#include <functional>
#include <utility>

#include "addin/host/host_events.h"
#include "admin/probe/questions.h"

namespace admin {
namespace {

using automation::EventInterface;
using automation::Object;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

// The events of an item and of a folder's folders, as the type library numbers them.
constexpr automation::Event probed_item_events[] = {{u"Write", 0xF002, 1U << 0},
                                                    {u"Open", 0xF003},
                                                    {u"Close", 0xF004},
                                                    {u"CustomPropertyChange", 0xF008},
                                                    {u"PropertyChange", 0xF009}};
constexpr EventInterface probed_item{"ItemEvents", automation::guid("{0006303A-0000-0000-C000-000000000046}"),
                                     probed_item_events};

/// Notes the events that come, by their names, in the order in which they come.
class Heard {
  public:
    explicit Heard(Probed& probed) : probed_(probed) {}

    Heard& listen(const EventInterface& interface, const Object& source,
                  const std::function<void(std::span<Value>)>& answer = {}) {
        std::vector<automation::Handler> handlers;
        for (const automation::Event& event : interface.events) {
            handlers.push_back({event.name, [this, name = automation::to_utf8(event.name),
                                             answer](std::span<Value> arguments) {
                                    names_.push_back(name);
                                    if (answer) answer(arguments);
                                }});
        }
        sinks_.push_back(std::make_unique<automation::Sink>());
        sinks_.back()->connect(interface, source, std::move(handlers));
        return *this;
    }

    /// Does something, and tells what came before that had come back, and what came later.
    std::string when(const std::function<void()>& act) {
        names_.clear();
        act();
        const std::vector<std::string> meanwhile = std::exchange(names_, {});
        probed_.wait_until([&] { return !names_.empty(); });
        return told("meanwhile", meanwhile, told("later", names_, "nothing"));
    }

    /// Does something, and tells what came in all, until `enough` events have.
    std::string order(std::size_t enough, const std::function<void()>& act) {
        names_.clear();
        act();
        probed_.wait_until([&] { return names_.size() >= enough; });
        return joined(names_);
    }

    std::size_t count() const { return names_.size(); }

  private:
    static std::string joined(const std::vector<std::string>& names) {
        std::string all;
        for (const std::string& name : names) all += (all.empty() ? "" : ", ") + name;
        return all.empty() ? "nothing" : all;
    }
    static std::string told(const char* when, const std::vector<std::string>& names, std::string others) {
        if (names.empty()) return others;
        std::string all = joined(names) + " " + when;
        return others == "nothing" ? all : all + ", " + others;
    }

    Probed& probed_;
    std::vector<std::string> names_;
    std::vector<std::unique_ptr<automation::Sink>> sinks_;
};

/// A folder's items that are listened to, and a saved post among them.
struct PostHeard {
    explicit PostHeard(Probed& probed)
        : post(probed.post()), items(Folder(post.get(u"Parent").to_object()).Items()), heard(probed) {
        probed.turn();  // what was told of the post's own coming
        heard.listen(host::events::items, items);
    }
    Item post;
    Object items;
    Heard heard;
};

/// What a folder tells of something that is done with a saved post of it, and when.
std::string of_post(Probed& probed, const std::function<void(const Item&)>& act) {
    PostHeard it(probed);
    return it.heard.when([&] { act(it.post); });
}

/// The same without the time: what the host tells of when it comes to it may reach another process at any
/// moment.
std::string names_of_post(Probed& probed, const std::function<void(const Item&)>& act) {
    PostHeard it(probed);
    return it.heard.order(1, [&] { act(it.post); });
}

constexpr std::int32_t discard_changes = 1;  // OlInspectorClose

constexpr ProbeQuestion event_rows[] = {
    {"A folder tells of a new post that is saved", "ItemAdd", source::believed,
     [](Probed& probed) {
         const Folder folder = probed.posts();
         const Object items = folder.Items();
         Heard heard(probed);
         return heard.listen(host::events::items, items).order(1, [&] {
             folder.Items().Add(u"IPM.Post").Save();
         });
     }},
    {"A folder tells of a new post that is posted", "ItemAdd", source::believed,
     [](Probed& probed) {
         const Folder folder = probed.posts();
         const Object items = folder.Items();
         Heard heard(probed);
         return heard.listen(host::events::items, items).order(1, [&] {
             folder.Items().Add(u"IPM.Post").Post();
         });
     }},
    {"A folder tells of a post that is changed and saved", "ItemChange meanwhile", source::believed,
     [](Probed& probed) {
         return of_post(probed, [](const Item& post) {
             post.Subject(u"Other");
             post.Save();
         });
     }},
    {"A folder tells of a post with a changed property of the user's", "ItemChange meanwhile",
     source::believed,
     [](Probed& probed) {
         return of_post(probed, [](const Item& post) {
             post.UserProperties()
                 .Add(u"Probe Name", host::outlook::text_property, false)
                 .value(Value(u"Mill"));
             post.Save();
         });
     }},
    {"A folder tells of a post that is saved without a change", "nothing", source::believed,
     [](Probed& probed) { return of_post(probed, [](const Item& post) { post.Save(); }); }},
    {"A folder tells of the copy of a post", "ItemAdd", source::believed,
     [](Probed& probed) { return names_of_post(probed, [](const Item& post) { post.Copy(); }); }},
    {"A folder tells of a post that moves away", "ItemRemove", source::believed,
     [](Probed& probed) {
         const Folder other = probed.posts();
         return names_of_post(probed, [&](const Item& post) { post.Move(other); });
     }},
    {"A folder tells of a post that moves in", "ItemAdd", source::believed,
     [](Probed& probed) {
         const Item post = probed.post();
         const Folder other = probed.posts();
         const Object items = other.Items();
         Heard heard(probed);
         return heard.listen(host::events::items, items).order(1, [&] { post.Move(other); });
     }},
    {"ItemAdd brings the item that was saved", "yes", "Items.ItemAdd event",
     [](Probed& probed) {
         const Folder folder = probed.posts();
         const Object items = folder.Items();
         Text brought;
         Heard heard(probed);
         heard.listen(host::events::items, items, [&](std::span<Value> arguments) {
             if (!arguments.empty()) brought = Item(arguments[0].to_object()).EntryID();
         });
         const Item post = folder.Items().Add(u"IPM.Post");
         heard.order(1, [&] { post.Save(); });
         return yes_or_no(brought == post.EntryID());
     }},
    {"A post that is saved again while its folder tells of the change", "ItemChange, ItemChange",
     source::believed,
     [](Probed& probed) {
         const Item post = probed.post();
         const Object items = Folder(post.get(u"Parent").to_object()).Items();
         probed.turn();
         Heard heard(probed);
         heard.listen(host::events::items, items, [&](std::span<Value> arguments) {
             if (heard.count() > 1 || arguments.empty()) return;
             const Item changed(arguments[0].to_object());
             changed.BillingInformation(u"marked");
             changed.Save();
         });
         post.Subject(u"Other");
         return heard.order(2, [&] { post.Save(); });
     }},
    {"A post tells of a change and of being saved, and then its folder does",
     "PropertyChange, Write, ItemChange", source::believed,
     [](Probed& probed) {
         const Item post = probed.post();
         const Object items = Folder(post.get(u"Parent").to_object()).Items();
         probed.turn();
         Heard heard(probed);
         heard.listen(probed_item, post).listen(host::events::items, items);
         return heard.order(3, [&] {
             post.Subject(u"Other");
             post.Save();
         });
     }},
    {"A post whose Write was refused is saved", "no", "PostItem.Write event",
     [](Probed& probed) {
         const Item post = probed.post();
         Heard heard(probed);
         heard.listen(probed_item, post, [&](std::span<Value> arguments) {
             if (!arguments.empty() && arguments[0].is(Value::Type::boolean)) arguments[0] = true;
         });
         post.Subject(u"Other");
         try {
             post.Save();
         } catch (const automation::Failure&) {
             return yes_or_no(post.Saved());
         }
         return yes_or_no(post.Saved());
     }},
    {"A post in a window of its own that is shown and closed", "Open, NewInspector, Activate, Close, Close",
     source::believed,
     [](Probed& probed) {
         const Item post = probed.post();
         Heard heard(probed);
         heard.listen(host::events::inspectors, probed.host().get(u"Inspectors").to_object())
             .listen(probed_item, post);
         return heard.order(5, [&] {
             const Object window = post.get(u"GetInspector").to_object();
             heard.listen(host::events::inspector, window);
             window.call(u"Display");
             probed.turn();
             window.call(u"Close", {discard_changes});
         });
     }},
};

}  // namespace

std::span<const ProbeQuestion> event_questions() { return event_rows; }

}  // namespace admin
