#include "platform/executor.h"
