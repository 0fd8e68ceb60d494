// SPDX-License-Identifier: MIT
#include "tests/bpr/importedcall_windows.h"

#include <QtCore/QCoreApplication>

#include <cstring>

namespace tablefiles {

namespace {

/// A place in a loaded library, from its offset.
template<typename Type> Type* at(char* library, DWORD64 offset)
{
    return reinterpret_cast<Type*>(library + offset);
}

/// Where a loaded library keeps the address of a function that it imports; null when it does not.
void** importPlace(char* library, const char* name)
{
    const auto* const headers = at<IMAGE_NT_HEADERS>(
        library, static_cast<DWORD>(at<IMAGE_DOS_HEADER>(library, 0)->e_lfanew));
    const DWORD imports =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto* from = at<IMAGE_IMPORT_DESCRIPTOR>(library, imports); from->Name != 0; ++from) {
        auto* named = at<IMAGE_THUNK_DATA>(library, from->OriginalFirstThunk);
        auto* place = at<IMAGE_THUNK_DATA>(library, from->FirstThunk);
        for (; named->u1.AddressOfData != 0; ++named, ++place) {
            const bool byNumber = IMAGE_SNAP_BY_ORDINAL(named->u1.Ordinal);
            if (!byNumber &&
                std::strcmp(at<IMAGE_IMPORT_BY_NAME>(library, named->u1.AddressOfData)->Name,
                            name) == 0) {
                return reinterpret_cast<void**>(&place->u1.Function);
            }
        }
    }
    return nullptr;
}

} // namespace

void* replaceImport(Importer importer, const char* name, void* replacement)
{
    HMODULE library = GetModuleHandleW(nullptr);
    if (importer == Importer::QtCore) {
        // Whatever its file is called: the library that holds this object.
        GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<const wchar_t*>(&QCoreApplication::staticMetaObject), &library);
    }
    void** const place =
        library == nullptr ? nullptr : importPlace(reinterpret_cast<char*>(library), name);
    DWORD rights = 0;
    if (place == nullptr || !VirtualProtect(place, sizeof *place, PAGE_READWRITE, &rights)) {
        qFatal("%s is not imported", name);
    }
    void* const previous = *place;
    *place = replacement;
    VirtualProtect(place, sizeof *place, rights, &rights);
    return previous;
}

} // namespace tablefiles
