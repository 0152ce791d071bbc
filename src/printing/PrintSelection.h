#pragma once

#include <QList>
#include <QString>

// Which page sides a print puts on paper, and in what order. Every side goes on a sheet of its own:
// a pre-printed magnet sheet carries one side.
namespace PrintSelection {

enum class Pages
{
    Current, // the page shown in the main window, front then back
    All, // pages 1 to 13, front then back of each
    AllFronts, // the fronts of pages 1 to 13
    AllBacks // the backs of pages 1 to 13
};

enum class Side
{
    Front,
    Back
};

struct Sheet
{
    int page = 1;
    Side side = Side::Front;

    bool operator==(const Sheet&) const = default;
};

// The "all" choices stop at page 13: page 14 goes to paper only as the current page.
constexpr int LastPageOfAll = 13;

QList<Sheet> sheetsOf(Pages pages, int currentPage);

// The sheets the user must load first, as the message that says so; empty when no message is due.
QString sheetPrompt(Pages pages);

} // namespace PrintSelection
