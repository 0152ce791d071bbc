#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <cstdint>
#include <functional>

class MenuDocument;
class RadioLink;

// The terminal key of the first line (slots 1 to 336) that holds the PLU number, 0 when none does.
std::int32_t GetBotao(const MenuDocument& document, std::int32_t plu, bool thirteenPages, int lastUsedPage);

// The key of a line slot. Keys follow the slots, except that without the thirteen-pages option the
// lines of pages 13 and 14 follow the last lettered page in use.
std::int32_t keyOfSlot(int slot, bool thirteenPages, int lastUsedPage);

// The whole menu as one session of the radio link: the modifier lists as the working folder's
// definitions file holds them, the product folders, the products on their keys with their lists,
// and the language names. The session is made from the document first and played into the link
// afterwards, so the link can run on a thread of its own while the document stays with the window.
class MenuTransmission
{
public:
    struct Options
    {
        bool thirteenPages = false;
        // Told on the sending thread right before and right after the upload.
        std::function<void()> uploadStarting;
        std::function<void()> uploadFinished;
    };

    MenuTransmission(const MenuDocument& document, Options options);

    // Opens the session on the port and, when the link opens it, sends the menu and closes the
    // session. Returns what opening answered: above 0 means nothing was sent.
    std::int32_t send(RadioLink& link, std::int32_t port) const;

private:
    using Call = std::function<void(RadioLink&)>;

    class Builder;

    Options m_options;
    QList<Call> m_calls;
};
