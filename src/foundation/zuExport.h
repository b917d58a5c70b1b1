// Which names the shared libraries show to others. Everything else stays inside.
#pragma once

/// Names that a library shows, seen from itself and from others.
#if !defined(_WIN32)
#define KORVANE_EXPORTED __attribute__((visibility("default")))
#define KORVANE_IMPORTED __attribute__((visibility("default")))
#elif defined(KORVANE_STATIC)
#define KORVANE_EXPORTED
#define KORVANE_IMPORTED
#else
#define KORVANE_EXPORTED __declspec(dllexport)
#define KORVANE_IMPORTED __declspec(dllimport)
#endif

// The build system defines <target>_EXPORTS while it compiles the library itself.
/// On what korvane::core shows to others.
#if defined(korvane_core_EXPORTS)
#define KORVANE_CORE_API KORVANE_EXPORTED
#else
#define KORVANE_CORE_API KORVANE_IMPORTED
#endif

/// On what korvane::widgets shows to others.
#if defined(korvane_widgets_EXPORTS)
#define KORVANE_WIDGETS_API KORVANE_EXPORTED
#else
#define KORVANE_WIDGETS_API KORVANE_IMPORTED
#endif
