// Symbol visibility of the device library's classes.
//
// VELARION_API marks the classes the device library exports. A few members
// are built by every binary that includes these headers instead (the library
// and emitter constructors, checkVersion(), the host time conversions,
// OutputInterval's constructor and destructor); they carry
// VELARION_INCLUDER_API as well, so that a binary which defines
// VELARION_EXPORT_INCLUDER_MEMBERS (the interop library) exports its own
// builds of them.
#pragma once

#if defined(_WIN32)
#if defined(VELARION_BUILDING_SDK)
#define VELARION_API __declspec(dllexport)
#define VELARION_INCLUDER_API
#elif defined(__GNUC__)
// MinGW resolves the classes' functions through the import library and their
// data (virtual tables) by auto-import, so no class-level import is needed;
// without one, an includer may define and export the members it builds.
#define VELARION_API
#if defined(VELARION_EXPORT_INCLUDER_MEMBERS)
#define VELARION_INCLUDER_API __declspec(dllexport)
#else
#define VELARION_INCLUDER_API
#endif
#else
// MSVC: the classes are imported whole, so an includer cannot define members
// of them; building the interop library with MSVC needs per-member imports.
#define VELARION_API __declspec(dllimport)
#define VELARION_INCLUDER_API
#endif
#else
#define VELARION_API __attribute__((visibility("default")))
#define VELARION_INCLUDER_API
#endif
