// The exported side of the handle table. There is one table, whatever table is named.

#include <lacquer/lacquer.h>

#include "core/handle_table.h"

DWORD e_NewHandleEntry(HandleTable *, int type, void *object) {
    return lacquer::ProcessHandleTable().NewHandleEntry(type, object);
}

int e_DelHandleEntry(HandleTable *, DWORD handle) { return lacquer::ProcessHandleTable().DelHandleEntry(handle); }
