// The platform's COM headers, all at once: they define a macro named `interface`, which our own headers use
// as a name. Every COM header that windows/ needs is included here and nowhere else.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <oaidl.h>
#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>

#undef interface
