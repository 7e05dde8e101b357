#include "platform/new_file.h"
