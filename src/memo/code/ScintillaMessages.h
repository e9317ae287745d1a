// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

// The messages of Scintilla's public interface that this program sends (scintilla.org/ScintillaDoc.html). They
// are our own constants, so that the core builds without the component's headers.

inline constexpr unsigned SCI_CLEARDOCUMENTSTYLE = 2005;
inline constexpr unsigned SCI_GETLENGTH = 2006;
inline constexpr unsigned SCI_GETCHARAT = 2007;
inline constexpr unsigned SCI_GETCURRENTPOS = 2008;
inline constexpr unsigned SCI_REDO = 2011;
inline constexpr unsigned SCI_SELECTALL = 2013;
inline constexpr unsigned SCI_GETCURLINE = 2027;
inline constexpr unsigned SCI_GETENDSTYLED = 2028;
inline constexpr unsigned SCI_CONVERTEOLS = 2029;
inline constexpr unsigned SCI_SETEOLMODE = 2031;
inline constexpr unsigned SCI_STARTSTYLING = 2032;
inline constexpr unsigned SCI_SETTABWIDTH = 2036;
inline constexpr unsigned SCI_MARKERDEFINE = 2040;
inline constexpr unsigned SCI_MARKERADD = 2043;
inline constexpr unsigned SCI_STYLECLEARALL = 2050;
inline constexpr unsigned SCI_STYLESETFORE = 2051;
inline constexpr unsigned SCI_STYLESETBACK = 2052;
inline constexpr unsigned SCI_STYLESETBOLD = 2053;
inline constexpr unsigned SCI_STYLESETITALIC = 2054;
inline constexpr unsigned SCI_STYLESETSIZE = 2055;
inline constexpr unsigned SCI_STYLESETFONT = 2056;
inline constexpr unsigned SCI_STYLERESETDEFAULT = 2058;
inline constexpr unsigned SCI_STYLESETUNDERLINE = 2059;
inline constexpr unsigned SCI_STYLESETCASE = 2060;
inline constexpr unsigned SCI_STYLESETVISIBLE = 2074;
inline constexpr unsigned SCI_SETCARETPERIOD = 2076;
inline constexpr unsigned SCI_SETSTYLEBITS = 2090;
inline constexpr unsigned SCI_SETINDENT = 2122;
inline constexpr unsigned SCI_GETCOLUMN = 2129;
inline constexpr unsigned SCI_SETINDENTATIONGUIDES = 2132;
inline constexpr unsigned SCI_SETHIGHLIGHTGUIDE = 2134;
inline constexpr unsigned SCI_GETLINECOUNT = 2154;
inline constexpr unsigned SCI_SETSEL = 2160;
inline constexpr unsigned SCI_LINEFROMPOSITION = 2166;
inline constexpr unsigned SCI_POSITIONFROMLINE = 2167;
inline constexpr unsigned SCI_UNDO = 2176;
inline constexpr unsigned SCI_CUT = 2177;
inline constexpr unsigned SCI_COPY = 2178;
inline constexpr unsigned SCI_PASTE = 2179;
inline constexpr unsigned SCI_CLEAR = 2180;
inline constexpr unsigned SCI_SETTEXT = 2181;
inline constexpr unsigned SCI_GETTEXT = 2182;
inline constexpr unsigned SCI_SETTARGETSTART = 2190;
inline constexpr unsigned SCI_GETTARGETSTART = 2191;
inline constexpr unsigned SCI_SETTARGETEND = 2192;
inline constexpr unsigned SCI_GETTARGETEND = 2193;
inline constexpr unsigned SCI_REPLACETARGET = 2194;
inline constexpr unsigned SCI_SEARCHINTARGET = 2197;
inline constexpr unsigned SCI_SETSEARCHFLAGS = 2198;
inline constexpr unsigned SCI_GETFOLDLEVEL = 2223;
inline constexpr unsigned SCI_TOGGLEFOLD = 2231;
inline constexpr unsigned SCI_ENSUREVISIBLE = 2232;
inline constexpr unsigned SCI_SETFOLDFLAGS = 2233;
inline constexpr unsigned SCI_SETMARGINWIDTHN = 2242;
inline constexpr unsigned SCI_SETMARGINMASKN = 2244;
inline constexpr unsigned SCI_SETMARGINSENSITIVEN = 2246;
inline constexpr unsigned SCI_SETWRAPMODE = 2268;
inline constexpr unsigned SCI_GETWRAPMODE = 2269;
inline constexpr unsigned SCI_BRACEHIGHLIGHT = 2351;
inline constexpr unsigned SCI_BRACEBADLIGHT = 2352;
inline constexpr unsigned SCI_BRACEMATCH = 2353;
inline constexpr unsigned SCI_SETMODEVENTMASK = 2359;
inline constexpr unsigned SCI_SEARCHANCHOR = 2366;
inline constexpr unsigned SCI_SEARCHNEXT = 2367;
inline constexpr unsigned SCI_SETLEXER = 4001;
inline constexpr unsigned SCI_SETPROPERTY = 4004;
inline constexpr unsigned SCI_SETKEYWORDS = 4005;

// Search flags.
inline constexpr int SCFIND_WHOLEWORD = 2;
inline constexpr int SCFIND_MATCHCASE = 4;

// Predefined styles.
inline constexpr int STYLE_DEFAULT = 32;
inline constexpr int STYLE_LINENUMBER = 33;
inline constexpr int STYLE_BRACELIGHT = 34;
inline constexpr int STYLE_BRACEBAD = 35;

// Lexer numbers with a rule of their own.
inline constexpr qint32 SCLEX_NULL = 1;
inline constexpr qint32 SCLEX_CPP = 3;
inline constexpr qint32 SCLEX_HTML = 4;
inline constexpr qint32 SCLEX_XML = 5;
inline constexpr qint32 SCLEX_XCODE = 13;
inline constexpr qint32 SCLEX_ASP = 29;
inline constexpr qint32 SCLEX_PHP = 30;
inline constexpr qint32 SCLEX_ESCRIPT = 41; // the last number with a fixed name
inline constexpr qint32 SCLEX_PHPSCRIPT = 69;
