// SPDX-License-Identifier: MIT
// Calls of the system that Qt's core library makes, led through functions of a test. Windows looks
// every imported name up by library, so the table of Qt's imports is changed; the test's own calls
// stay as they are.
#pragma once

#include <QtCore/qt_windows.h>

namespace tablefiles {

/// Puts a function in the place of the one that Qt imports by this name, and returns that one.
void* replaceImport(const char* name, void* replacement);

/// The same with the type of the function.
template<typename Function> Function* lead(const char* name, Function* replacement)
{
    return reinterpret_cast<Function*>(replaceImport(name, reinterpret_cast<void*>(replacement)));
}

} // namespace tablefiles
