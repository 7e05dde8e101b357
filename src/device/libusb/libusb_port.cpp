#include "device/usb_port.h"
