# SPDX-FileCopyrightText: 2026 The SnipVale developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Debian ships QScintilla for Qt 6 without a CMake package.
find_path(QSCINTILLA_INCLUDE_DIR Qsci/qsciscintillabase.h PATH_SUFFIXES x86_64-linux-gnu/qt6 aarch64-linux-gnu/qt6 qt6 REQUIRED)
find_library(QSCINTILLA_LIBRARY qscintilla2_qt6 REQUIRED)
add_library(QScintilla::QScintilla UNKNOWN IMPORTED)
set_target_properties(QScintilla::QScintilla PROPERTIES
  IMPORTED_LOCATION ${QSCINTILLA_LIBRARY}
  INTERFACE_INCLUDE_DIRECTORIES ${QSCINTILLA_INCLUDE_DIR}
  INTERFACE_LINK_LIBRARIES "Qt6::Widgets;Qt6::PrintSupport")
