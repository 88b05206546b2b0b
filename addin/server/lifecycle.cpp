#include "addin/server/lifecycle.h"

namespace windows {
namespace {

using automation::Ignored;
using automation::Object;
using automation::Use;

template <class Handler>
void silently(Handler&& handler) {
    try {
        handler();
    } catch (const automation::Failure&) {
        // the host goes on as if nothing had happened
    }
}

}  // namespace

const automation::Members<Lifecycle>& Lifecycle::members() {
    static const automation::Members<Lifecycle> table{
        {u"OnConnection",
         1,
         Use::method,
         {u"Application", u"ConnectMode", u"AddInInst", u"custom"},
         [](Lifecycle& self, const Object& application, std::int32_t mode, const Object& add_in, Ignored) {
             self.on_connection(application, mode, add_in);
         }},
        {u"OnDisconnection",
         2,
         Use::method,
         {u"RemoveMode", u"custom"},
         [](Lifecycle& self, std::int32_t mode, Ignored) { self.on_disconnection(mode); }},
        {u"OnAddInsUpdate",
         3,
         Use::method,
         {u"custom"},
         [](Lifecycle& self, Ignored) { self.on_add_ins_update(); }},
        {u"OnStartupComplete",
         4,
         Use::method,
         {u"custom"},
         [](Lifecycle& self, Ignored) { self.on_startup_complete(); }},
        {u"OnBeginShutdown",
         5,
         Use::method,
         {u"custom"},
         [](Lifecycle& self, Ignored) { self.on_begin_shutdown(); }},
    };
    return table;
}

void Lifecycle::on_connection(const Object& application, std::int32_t mode, const Object& add_in) {
    silently([&] { connect_->IDTExtensibility2_OnConnection(application, mode, add_in); });
}

void Lifecycle::on_disconnection(std::int32_t mode) {
    silently([&] { connect_->IDTExtensibility2_OnDisconnection(mode); });
    load_->desktop.release_others();  // a host that closes waits for the last reference
}

void Lifecycle::on_add_ins_update() {
    silently([&] { connect_->IDTExtensibility2_OnAddInsUpdate(); });
}

void Lifecycle::on_startup_complete() {
    silently([&] { connect_->IDTExtensibility2_OnStartupComplete(); });
}

void Lifecycle::on_begin_shutdown() {
    silently([&] { connect_->IDTExtensibility2_OnBeginShutdown(); });
}

}  // namespace windows
