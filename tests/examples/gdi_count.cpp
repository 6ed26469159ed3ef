// Each known function gets a replacement of its own, which calls it and notes what it gave or was given.
#include "gdi_count.h"

#include <windows.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

namespace lacquer::examples {

namespace {

std::set<const void *> living;
std::map<HDC, HGDIOBJ> bitmaps;  // by the context that they are selected into

template <typename Argument>
void Forget(Argument argument) {
    if constexpr (std::is_pointer_v<Argument>) living.erase(argument);
}
void Forget(const PAINTSTRUCT *paint) { living.erase(paint->hdc); }

constexpr auto kMade = [](auto made, auto...) {
    if (made) living.insert(made);
};
constexpr auto kGiven = [](auto, auto... arguments) { (Forget(arguments), ...); };
constexpr auto kSelected = [](auto, HDC context, HGDIOBJ object) {
    if (GetObjectType(object) == OBJ_BITMAP) bitmaps[context] = object;
};
constexpr auto kContextGiven = [](auto, HDC context) {
    bitmaps.erase(context);
    living.erase(context);
};
constexpr auto kDeleted = [](auto, HGDIOBJ object) {
    const auto isThis = [&](const auto &selection) { return selection.second == object; };
    if (std::none_of(bitmaps.begin(), bitmaps.end(), isThis)) living.erase(object);
};

template <int slot>
void *original = nullptr;

template <int slot, auto note, typename Result, typename... Arguments>
Result WINAPI Replacement(Arguments... arguments) {
    const Result result = reinterpret_cast<Result(WINAPI *)(Arguments...)>(original<slot>)(arguments...);
    note(result, arguments...);
    return result;
}

struct Function {
    std::string_view name;
    void **original;
    void *replacement;
};

template <int slot, auto note, typename Result, typename... Arguments>
Function Replaced(std::string_view name, Result(WINAPI *)(Arguments...)) {
    return {name, &original<slot>, reinterpret_cast<void *>(&Replacement<slot, note, Result, Arguments...>)};
}

const Function functions[] = {
    Replaced<0, kMade>("CreateCompatibleDC", &CreateCompatibleDC),
    Replaced<1, kMade>("CreateDIBSection", &CreateDIBSection),
    Replaced<2, kMade>("CreateCompatibleBitmap", &CreateCompatibleBitmap),
    Replaced<3, kMade>("CreateRectRgn", &CreateRectRgn),
    Replaced<4, kMade>("CreateRectRgnIndirect", &CreateRectRgnIndirect),
    Replaced<5, kMade>("ExtCreateRegion", &ExtCreateRegion),
    Replaced<6, kMade>("CreateFontIndirectW", &CreateFontIndirectW),
    Replaced<7, kMade>("CreateSolidBrush", &CreateSolidBrush),
    Replaced<8, kMade>("GetDC", &GetDC),
    Replaced<9, kMade>("BeginPaint", &BeginPaint),
    Replaced<10, kGiven>("EndPaint", &EndPaint),
    Replaced<11, kGiven>("ReleaseDC", &ReleaseDC),
    Replaced<12, kGiven>("SetWindowRgn", &SetWindowRgn),  // the window owns the region
    Replaced<13, kSelected>("SelectObject", &SelectObject),
    Replaced<14, kDeleted>("DeleteObject", &DeleteObject),
    Replaced<15, kContextGiven>("DeleteDC", &DeleteDC),
};

/// The functions that a module imports: calls `visit` with the library's name, the function's, and its place.
template <typename Visit>
void ForEachImport(HMODULE module, Visit visit) {
    auto *base = reinterpret_cast<BYTE *>(module);
    const auto *headers =
        reinterpret_cast<IMAGE_NT_HEADERS *>(base + reinterpret_cast<IMAGE_DOS_HEADER *>(base)->e_lfanew);
    const DWORD imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto *library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR *>(base + imports); library->Name != 0; ++library) {
        const auto *name = reinterpret_cast<IMAGE_THUNK_DATA *>(base + library->OriginalFirstThunk);
        auto *place = reinterpret_cast<void **>(base + library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++place) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            visit(std::string_view(reinterpret_cast<char *>(base + library->Name)),
                  std::string_view(reinterpret_cast<IMAGE_IMPORT_BY_NAME *>(base + name->u1.AddressOfData)->Name),
                  place);
        }
    }
}

}  // namespace

std::string CountGdiObjectsOf(std::initializer_list<const wchar_t *> modules) {
    std::string unknown;
    const auto replace = [&](std::string_view library, std::string_view name, void **place) {
        const auto *const known = std::ranges::find(functions, name, &Function::name);
        if (known == std::end(functions)) {
            if (library == "GDI32.dll" && name.find("Create") != name.npos) unknown += std::string(name) + ' ';
            return;
        }
        *known->original = *place;
        DWORD protection = 0;
        VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
        *place = known->replacement;
        VirtualProtect(place, sizeof *place, protection, &protection);
    };
    for (const wchar_t *module : modules) {
        const HMODULE handle = GetModuleHandleW(module);
        if (handle == nullptr) return "a module is not loaded";
        ForEachImport(handle, replace);
    }
    return unknown;
}

std::size_t LivingGdiObjects() { return living.size(); }

}  // namespace lacquer::examples
