#include "tests/unit/support/scene.h"

#include "addin/ground/settings.h"
#include "tests/world/host_numbers.h"
#include "tests/world/linked_items.h"

namespace addin_tests {

using acceptance::ItemState;
using acceptance::new_item;
using acceptance::shown;
using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Folders;
using host::outlook::Item;
using host::outlook::Items;
using native::MemoryControl;
using native::MemoryWindow;

namespace {

void gather(const Folder& folder, const std::string& above, Things& things) {
    const std::string path = above + "/" + shown(folder.Name());
    const Items items = folder.Items();
    const std::int32_t item_count = items.Count();
    for (std::int32_t i = 1; i <= item_count; ++i) {
        const Item item = items.Item(i);
        ItemState state = acceptance::state_of(item);
        state["its folder"] = path;
        things.emplace(shown(item.EntryID()), std::move(state));
    }
    const Folders below = folder.Folders();
    const std::int32_t folder_count = below.Count();
    for (std::int32_t i = 1; i <= folder_count; ++i) gather(below.Item(i), path, things);
}

Item linked(native::NativeWorld& world, const acceptance::LinkedKind& kind) {
    const Item item = new_item(world, kind.own_folder, kind.message_class);
    item.Subject(u"Plan of the new line");
    item.Body(u"With the plans of last week.");
    for (const auto& [name, value] : {std::pair<TextView, TextView>{kind.key, u"K-1"},
                                      {u"AccountID", u"A-100"},
                                      {u"ContactID", u"C-200"}}) {
        item.UserProperties().Item(name).value(value);
    }
    item.Save();
    return item;
}

Item personal(native::NativeWorld& world, TextView name, TextView link) {
    const Item item = new_item(world, acceptance::contacts, u"IPM.Contact");
    item.FullName(Text(name));
    item.CompanyName(u"North Mill Ltd");
    item.CustomerID(Text(link));
    item.Save();
    return item;
}

}  // namespace

Things things_of(acceptance::World& world) {
    Things things;
    const Folders stores(world.name_space().get(u"Folders").to_object());
    const std::int32_t count = stores.Count();
    for (std::int32_t i = 1; i <= count; ++i) gather(stores.Item(i), "", things);
    return things;
}

Scene::Scene(const acceptance::WorldSetup& setup) : world(setup) {
    world.family(u"UserName", u"Mia Hart");
    world.family(u"Alignment", u"North");
    acceptance::show_folder(world, world.inbox());
    acceptance::add_mill(world, u"Mia Hart", u"North");
    ann = acceptance::add_contact(world);
    opportunity = world.below(u"Opportunities").Items().Add(u"IPM.Post.Opportunity");
    opportunity.Subject(u"Row");
    for (const auto& [name, value] :
         {std::pair<TextView, TextView>{u"ContactID", u"C-200"}, {u"Name", u"Row"}, {u"OppID", u"O-1"}}) {
        opportunity.UserProperties().Item(name).value(value);
    }
    opportunity.Save();
    const Item entry = world.below(u"Drop Downs").Items().Add(u"IPM.Post.Drop Down");
    entry.Subject(u"Hello");  // as a mail's
    entry.UserProperties().Item(u"RecordType").value(u"Note Type");
    entry.Save();
    mail = world.deliver(acceptance::message());
    strange =
        world.deliver(acceptance::message({.from = "Eve Stone <eve@stone.example>", .subject = "Hello"}));
    contact = personal(world, u"Ann Lee", u"C-200");
    unlinked = personal(world, u"Cid Fox", u"");
    appointment = new_item(world, host::outlook::default_folder::calendar, u"IPM.Appointment");
    appointment.Subject(u"Tea");
    appointment.Save();
    linked_appointment = linked(world, acceptance::appointments);
    linked_task = linked(world, acceptance::linked_tasks);
    world.settle();
}

Scene::~Scene() { leave(); }

acceptance::OpenedItem& Scene::show(const Item& item) {
    opened_.push_back(std::make_unique<acceptance::OpenedItem>(item));
    return opened_.back()->show();
}

void Scene::write(const Item& item, TextView field, TextView text) {
    show(item);
    written_ = item;
    written_id_ = item.EntryID();
    field_ = field;
    text_ = text;
    item.put(field, Value(text));
}

void Scene::press(TextView tag) {
    if (opened_.empty()) return;
    for (const TextView bar : {acceptance::item_bar, TextView(u"Convert Appointment"), TextView(u"Menu Bar"),
                               TextView(u"Contact Templates")}) {
        const Object found = acceptance::find_control(opened_.back()->window, bar, tag);
        if (!found) continue;
        world.desk().call(u"Press", {Value(found)});
        world.settle();
        return;
    }
}

void Scene::press_entry(TextView tag) {
    world.desk().get(u"ContextMenu");
    const Object entry =
        acceptance::find_control(world.application().Explorers().Item(1), u"Context Menu", tag);
    if (!entry) return;
    world.desk().call(u"Press", {Value(entry)});
    world.settle();
}

void Scene::select(const Item& item) {
    world.desk().call(u"Select", {Value(item)});
    world.settle();
}

void Scene::answer(TextView fragment, std::int32_t button) {
    world.desk().call(u"Answer", {u"Tarnwell", Value(fragment), button});
}

MemoryWindow* Scene::window(TextView caption) {
    MemoryWindow* const found = world.engine().find(caption);
    return found && found->visible() ? found : nullptr;
}

MemoryControl* Scene::control(TextView caption, TextView name) {
    MemoryWindow* const found = window(caption);
    return found ? found->find(name) : nullptr;
}

void Scene::pick(TextView caption) {
    MemoryControl* const list = control(caption, u"lstItems");
    if (!list) return;
    list->select(0);
    if (MemoryControl* const add = control(caption, u"cmdAdd"); add && add->shown()) add->click();
    if (MemoryControl* const ok = control(caption, u"cmdOK")) ok->click();
    world.settle();
}

std::string Scene::lost_text() {
    if (!written_) return {};
    const host::outlook::Inspectors open = world.application().Inspectors();
    for (std::int32_t i = 1; i <= open.Count(); ++i) {
        const Item item = open.Item(i).CurrentItem();
        const bool is_it = written_id_.empty() || item.EntryID() == written_id_;
        if (is_it && item.get(field_).to_text() == text_) return {};
    }
    for (const auto& [id, state] : things_of(world)) {  // a new item has got its id when it was saved
        const auto found = state.find(shown(field_));
        const bool is_it = written_id_.empty() || id == shown(written_id_);
        if (is_it && found != state.end() && found->second == shown(text_)) return {};
    }
    return "what was written into " + shown(field_) + " is lost";
}

std::string Scene::synchronisation() {
    return shown(addin::Settings(world.desktop()).option(addin::setting::pda_contact_sync));
}

std::string Scene::leave() {
    if (!world.runs()) return {};
    opened_.clear();
    const host::outlook::Inspectors open = world.application().Inspectors();
    while (open.Count() > 0) open.Item(1).Close(host::outlook::discard_changes);
    for (Item* const item : {&mail, &strange, &contact, &unlinked, &appointment, &linked_appointment,
                             &linked_task, &ann, &opportunity, &written_}) {
        *item = Item();
    }
    world.quit();
    std::string left;
    for (const desk::LiveCount& one : world.boundary().live()) {
        left += " " + std::to_string(one.count) + " " + one.kind;
    }
    for (const MemoryWindow* const one : world.engine().windows()) {
        left += " the window " + shown(one->caption());
    }
    return left;
}

}  // namespace addin_tests
