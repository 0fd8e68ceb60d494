// SPDX-License-Identifier: MIT
#include "mainwindow_table.h"

using namespace setting;

std::vector<Setting> sectionTitle(const char* caption)
{
    return {text(caption), bold(10), centred()};
}

std::vector<Page> pageTables()
{
    constexpr auto Expanding = QSizePolicy::Expanding;
    constexpr auto Preferred = QSizePolicy::Preferred;
    return {
        {"Image Processing",
         {"QWidget", "ImageProcSection", {enabled(), policy(Preferred, Preferred), minimum(0, 0)}},
         imageProcessingTable()},
        {"LUT", {"QWidget", "LutSection", {enabled(), policy(Expanding, Expanding)}}, lutTable()},
        {"Zoom",
         {"QWidget", "ZoomSection", {enabled(), policy(Expanding, Expanding)}},
         zoomTable()},
        {"Edge",
         {"QWidget", "EdgeSection", {enabled(), policy(Expanding, Expanding)}},
         edgeTable()},
        {"Bad Pixels", {"QWidget", "BadPixelsSection", {enabled()}}, badPixelsTable()},
        {"Expert",
         {"QWidget", "ExpertMode", {enabled(), policy(Expanding, Expanding)}},
         expertTable()},
    };
}

std::vector<FormSection> allTables()
{
    std::vector<FormSection> tables{barsTable()};
    for (Page& page : pageTables()) {
        tables.push_back(std::move(page.section));
    }
    return tables;
}

QStringList allMembers()
{
    QStringList members{QStringLiteral("centralWidget")};
    for (const QString& name : barsTable().members()) {
        members << name;
        if (name != QLatin1String("tabWidget")) {
            continue;
        }
        for (const Page& page : pageTables()) {
            members << QLatin1String(page.section.root) << page.section.members();
        }
    }
    return members;
}
