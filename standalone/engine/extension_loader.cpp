#include "standalone/engine/extension_loader.h"
