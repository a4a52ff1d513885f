// The program's objects for automation, and objects of automation for the program. Every Object can be had as an
// IDispatch, made from its member table, and every IDispatch as an Object; each goes back to what it was made from.
//
// An object that is handed out is held until the last foreign reference to it goes. One that belongs to a window that
// was closed answers with error 424. Nothing that others hold keeps the process alive.
#pragma once

#include "base/object.h"
#include "desktop/win32/system/com_owner.h"

namespace kestrun {

// The object for others: the same IDispatch for the same object as long as anybody holds it. Members are found by name
// without regard to case. "_NewEnum" gives an enumeration where there is one, the default member is DISPID_VALUE, and
// arguments may be given by name. Failures are told as exceptions with number and text of the run-time error. Calls on
// another thread than the program's give RPC_E_WRONG_THREAD.
[[nodiscard]] ComOwner<IDispatch> DispatchOf(Object& object);

// Somebody else's object for the program, or the program's own object behind a reference that came back. Null for null,
// error 430 for an object without IDispatch. Failures of its members are raised as run-time errors; those that nobody
// describes have the system's text. Arguments are passed by value.
[[nodiscard]] Ref<Object> ObjectOf(IUnknown* foreign);

// Lets go of all objects that were handed out: from now on they answer with error 424. For the end of the program.
void CloseObjectBridge();

}  // namespace kestrun
