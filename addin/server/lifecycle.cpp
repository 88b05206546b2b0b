#include "addin/server/lifecycle.h"

namespace windows {
namespace {

using automation::Arguments;
using automation::Parameter;
using automation::Takes;
using automation::Use;
using automation::Value;

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
    static const Parameter custom{u"custom", Takes::value, true};
    static const automation::Members<Lifecycle> table{
        {u"OnConnection",
         1,
         Use::method,
         {{u"Application", Takes::object},
          {u"ConnectMode", Takes::integer},
          {u"AddInInst", Takes::object},
          custom},
         [](Lifecycle& self, const Arguments& a) -> Value {
             self.on_connection(a[0].to_object(), a[1].to_integer(), a[2].to_object());
             return {};
         }},
        {u"OnDisconnection",
         2,
         Use::method,
         {{u"RemoveMode", Takes::integer}, custom},
         [](Lifecycle& self, const Arguments& a) -> Value {
             self.on_disconnection(a[0].to_integer());
             return {};
         }},
        {u"OnAddInsUpdate",
         3,
         Use::method,
         {custom},
         [](Lifecycle& self, const Arguments&) -> Value {
             self.on_add_ins_update();
             return {};
         }},
        {u"OnStartupComplete",
         4,
         Use::method,
         {custom},
         [](Lifecycle& self, const Arguments&) -> Value {
             self.on_startup_complete();
             return {};
         }},
        {u"OnBeginShutdown",
         5,
         Use::method,
         {custom},
         [](Lifecycle& self, const Arguments&) -> Value {
             self.on_begin_shutdown();
             return {};
         }},
    };
    return table;
}

void Lifecycle::on_connection(const automation::Object& application, std::int32_t mode,
                              const automation::Object& add_in) {
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
