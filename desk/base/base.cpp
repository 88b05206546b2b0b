#include "desk/base/base.h"

#include "desk/base/desk.h"

namespace desk {

using automation::calls;
using automation::Use;
using automation::Value;

namespace {

/// Counts what is being told, whatever way the telling ends.
class Telling {
  public:
    explicit Telling(int& count) : count_(count) { ++count_; }
    ~Telling() { --count_; }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;

  private:
    int& count_;
};

}  // namespace

void ModelBase::raise(automation::TextView event, std::vector<Value> arguments) {
    raise_with_answer(event, arguments);
}

void ModelBase::raise_with_answer(automation::TextView event, std::vector<Value>& arguments) {
    desk_.moment_comes(event);
    const Telling telling(desk_.telling());
    subscriptions_.raise(event, arguments);
}

bool ModelBase::has_events(const automation::Guid& interface_id) {
    return find_events(event_interfaces(), interface_id) != nullptr;
}

std::int32_t ModelBase::subscribe(const automation::Guid& interface_id, const automation::Object& sink) {
    return subscriptions_.add(find_events(event_interfaces(), interface_id), sink);
}

void ModelBase::unsubscribe(const automation::Guid&, std::int32_t cookie) { subscriptions_.remove(cookie); }

void ModelBase::observe(automation::TextView member) const {
    desk_.check_planned_failures(class_name(), member);
}

const automation::Members<ModelBase>& ModelBase::common_members() {
    static const automation::Members<ModelBase> table{
        {u"Application", 0xF000, Use::get, [](ModelBase& self) { return self.desk().application_object(); }},
        {u"Class", 0xF00A, Use::get, calls<&ModelBase::number>},
        {u"Session", 0xF00B, Use::get, [](ModelBase& self) { return self.desk().session_object(); }},
        {u"Parent", 0xF001, Use::get, calls<&ModelBase::parent>},
    };
    return table;
}

}  // namespace desk
