// The exported setting of the bicubic weights.

#include <lacquer/lacquer.h>

#include "pipeline/sample/stretch_weights.h"

int SetStretchKernelMode(DWORD mode) { return lacquer::RebuildStretchWeights(mode); }

DWORD GetStretchKernelMode() { return lacquer::StretchWeightsMode(); }
