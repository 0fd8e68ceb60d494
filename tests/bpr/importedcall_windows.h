// SPDX-License-Identifier: MIT
// Calls of the system that Qt's core library or the tool makes, led through functions of a test.
// Windows looks every imported name up by library, so the table of that library's imports is
// changed; the other ones' calls stay as they are.
#pragma once

#include <QtCore/qt_windows.h>

namespace tablefiles {

enum class Importer {
    QtCore,
    Program ///< the test program, which the tool is a part of
};

/// Puts a function in the place of the one that is imported by this name, and returns that one.
void* replaceImport(Importer importer, const char* name, void* replacement);

/// The same with the type of the function.
template<typename Function>
Function* lead(Importer importer, const char* name, Function* replacement)
{
    return reinterpret_cast<Function*>(
        replaceImport(importer, name, reinterpret_cast<void*>(replacement)));
}

} // namespace tablefiles
