#pragma once

#include <QString>

#include <cstdint>
#include <optional>

// Every modal question the program puts to the user goes through here, so that the windows can be
// driven by a script in tests and the command line can answer on its own streams.
class UserPrompts
{
public:
    virtual ~UserPrompts() = default;

    // A message with an OK button only.
    virtual void showMessage(const QString& text) = 0;

    // A one-line input box with the given title; the empty text when the user cancels.
    virtual QString askText(const QString& title) = 0;

    // The system's file dialogs. The preset is a pattern ("*.QV1") or a file name ("DATA.XLS") the
    // dialog starts with. The chosen path, or the empty text when the user cancels.
    virtual QString askOpenFile(const QString& preset) = 0;
    virtual QString askSaveFile(const QString& preset) = 0;

    // The system's colour dialog, opened on the initial colour. Colours are numbers with red in the low
    // byte (0x00BBGGRR); nothing when the user cancels.
    virtual std::optional<std::int32_t> askColor(std::int32_t initialColor) = 0;
};
