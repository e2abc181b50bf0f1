#include "standalone/host/text_wrapping.h"
