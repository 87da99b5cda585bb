#pragma once

/// \file
/// The one visibility macro of the library. Everything that callers may use carries it; all other symbols stay hidden.

#if defined(_WIN32)
#if defined(MRLIO_BUILDING)
#define MRLIO_EXPORT __declspec(dllexport)
#else
#define MRLIO_EXPORT __declspec(dllimport)
#endif
#else
#define MRLIO_EXPORT __attribute__((visibility("default")))
#endif
