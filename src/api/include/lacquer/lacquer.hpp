/// @file
/// Lacquer for C++17: owners, locks, scopes, effects, skins and text, header-only, over the C interface of
/// <lacquer/lacquer.h>.
///
/// - Namespace `lq`. The library's own code is in `lacquer`, with classes of its own called Canvas, Texture and so on.
///   A program that links the library statically would have two classes of each name if this layer were there, too.
///
/// - An owner stands wherever a C function takes its handle: `FillSolidRect(canvas, colour, &rect)`. So everything in
///   lacquer.h can be called, and this layer has members only where C++ makes a call shorter or safer. Each is compiled
///   to the plain call.
///
/// - Results are bool, std::optional or an owner that is empty on failure. Nothing throws; the failures are those of
///   the C functions that the comments name, which also say more.
///
/// - Types are the same in C++17 and in C++20, so that objects compiled either way can be linked together. A
///   `lq::Span` turns into a std::span by itself.
///
/// - On Windows the headers do not mind the macros of <windows.h>, with or without NOMINMAX.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef LACQUER_LACQUER_HPP
#define LACQUER_LACQUER_HPP

#include <lacquer/effects.hpp>
#include <lacquer/objects.hpp>
#include <lacquer/pixels.hpp>
#include <lacquer/scopes.hpp>
#include <lacquer/skin.hpp>
#include <lacquer/text.hpp>
#include <velgraphic/velgraphic.hpp>

/// @defgroup cpp C++ layer
/// Owners, locks, scopes, effects, skins and text in the namespace `lq`, over the C interface: <lacquer/lacquer.hpp>
/// and <velgraphic/velgraphic.hpp>.

#endif
