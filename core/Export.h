// SPDX-License-Identifier: GPL-2.0-or-later
// Marks what the shared library shows to the programs that link it.
#pragma once

#include <QtGlobal>

#ifdef KELO_BASE_BUILDING
#define KELO_BASE_EXPORT Q_DECL_EXPORT
#else
#define KELO_BASE_EXPORT Q_DECL_IMPORT
#endif
