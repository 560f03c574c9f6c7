// Symbol visibility of the device library's classes.
#pragma once

#if defined(_WIN32)
#if defined(VELARION_BUILDING_SDK)
#define VELARION_API __declspec(dllexport)
#else
#define VELARION_API __declspec(dllimport)
#endif
#else
#define VELARION_API __attribute__((visibility("default")))
#endif
