#include "audio/wave.h"
