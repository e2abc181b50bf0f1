#pragma once

#include "vond/host_api.h"

/// The version of the binary contract of these headers: records, output log, slots of virtual
/// operations, exported functions. It is raised with each change that breaks extensions which are
/// already built.
#define VOND_CONTRACT_VERSION 1

/// Makes an extension tell, in a symbol `vond_contract`, for which version it was built: a host
/// with another one refuses it before it calls `create`. To be written once in an extension, in any
/// of its sources outside all namespaces. An extension without the symbol is not checked.
#define VOND_EXPORT_CONTRACT                       \
  extern "C" {                                     \
  VOND_HOST_API extern const int vond_contract;    \
  const int vond_contract = VOND_CONTRACT_VERSION; \
  }                                                \
  static_assert(vond_contract == VOND_CONTRACT_VERSION)
