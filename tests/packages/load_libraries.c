/* Opens the DLLs of the wheel as Python does, from their folder and in its order, and draws: load_libraries FOLDER */
#include <lacquer/lacquer.h>
#include <stdio.h>

typedef HGCANVAS Create(DWORD, DWORD, HGCANVAS);
typedef int Draw(HGCANVAS, float, float, float, float);

int main(int count, char **arguments) {
    const char *names[] = {"velGraphic", "lacquer", "lacquer_image"};
    HMODULE libraries[3] = {0};
    for (int i = 0; count == 2 && i < 3; ++i) {
        char name[MAX_PATH], path[MAX_PATH];
        snprintf(name, sizeof name, "%s\\%s.dll", arguments[1], names[i]);
        GetFullPathNameA(name, sizeof path, path, NULL);
        libraries[i] = LoadLibraryExA(path, NULL, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS | LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR);
        if (!libraries[i]) return printf("%s: error %lu\n", path, GetLastError()) && 1;
    }
    Create *create = (Create *)(void *)GetProcAddress(libraries[1], "CreateCanvas");
    Draw *draw = (Draw *)(void *)GetProcAddress(libraries[1], "DrawRectangle");
    return GetProcAddress(libraries[2], "LoadTextureFromData") && create && draw &&
                   draw(create(4, 4, (HGCANVAS){0}), 1, 1, 2, 2)
               ? 0
               : 1;
}
