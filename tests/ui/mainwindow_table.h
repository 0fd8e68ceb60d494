// SPDX-License-Identifier: MIT
// What the main window's form must look like, one table for each part of the window.
#pragma once

#include "formtable.h"

/// The button bars above the tabs and the information bar below them.
FormSection barsTable();
FormSection imageProcessingTable();
FormSection lutTable();
FormSection zoomTable();
FormSection edgeTable();
FormSection badPixelsTable();
FormSection expertTable();

/// A heading within a page.
std::vector<Setting> sectionTitle(const char* caption);

/// A page of the tab widget.
struct Page {
    const char* title;
    WidgetRow widget; ///< the page itself
    FormSection section;
};

/// The pages in the order of their tabs.
std::vector<Page> pageTables();

/// The bars and all pages.
std::vector<FormSection> allTables();

/// The object name of every member of the form in the order of creation; a spacer is an empty
/// string.
QStringList allMembers();
