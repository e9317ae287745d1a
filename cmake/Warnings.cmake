# SPDX-FileCopyrightText: 2026 The SnipVale developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Every target of ours is built with these: warnings are errors, no silent casts between bytes and text.
add_library(snipvale_warnings INTERFACE)
target_compile_options(snipvale_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
  -Wcast-align -Wunused -Wextra-semi -Wformat=2 -Wimplicit-fallthrough)
target_compile_definitions(snipvale_warnings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
