// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

// Every command, menu and tool bar of the frame, as data. Names are the contract with windows and tests;
// captions, icons (freedesktop names) and shortcuts are for the user.

struct CommandRow {
    const char* name;
    const char16_t* caption;
    const char* icon = "";
    const char* shortcut = "";
    bool checkable = false;
};

// `items` are command or menu names between blanks, "-" a separator.
struct MenuRow {
    const char* name;
    const char16_t* title;
    const char* items;
    bool inMenuBar = true;
};

struct BarRow {
    const char* name;
    const char16_t* title;
    const char* items;
};

// Why commands are disabled when they are: what the user has to do first.
struct NeedRow {
    const char* commands; // names between blanks
    const char16_t* need;
};

std::span<const CommandRow> commandTable();
std::span<const MenuRow> menuTable(); // a menu stands after those that it holds
std::span<const BarRow> barTable();
std::span<const NeedRow> needTable();
