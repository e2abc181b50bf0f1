#include "witness.h"

// What extensions are made by has to be called "create".
extern "C" VOND_HOST_API int make() { return 0; }
