#include "standalone/engine/definitions_reader.h"
