#pragma once

/// Marks what the host's libraries define and extensions link against. Extensions are built with
/// hidden visibility, so without the mark they would look for these symbols in themselves.
#define VOND_HOST_API __attribute__((visibility("default")))
