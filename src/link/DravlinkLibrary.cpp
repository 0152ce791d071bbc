#include "DravlinkLibrary.h"

#include "document/AnsiCodec.h"

#include <QCoreApplication>
#include <QMutexLocker>

namespace {

constexpr const char* OperationNames[] = {
    "menu_init",
    "radio_make_tree_mkdir",
    "radio_make_tree_cd",
    "radio_make_tree_cd_back",
    "menu_modifier",
    "menu_item",
    "radio_make_tree_modifier_min_max",
    "menu_item_modifier_group",
    "radio_set_entry",
    "menu_upload",
    "menu_close",
    "radio_init",
    "menu_receive",
    "radio_close",
};

const QString LibraryName = QStringLiteral("Dravlink");

// Where to look for the library, in order.
QStringList libraryCandidates()
{
    const QString chosen = qEnvironmentVariable("QUORVEL_DRAVLINK");
    if (!chosen.isEmpty()) {
        return { chosen };
    }
    return { QCoreApplication::applicationDirPath() + u'/' + LibraryName, LibraryName };
}

} // namespace

DravlinkLibrary::DravlinkLibrary() = default;

void DravlinkLibrary::load()
{
    for (const QString& candidate : libraryCandidates()) {
        m_library.setFileName(candidate);
        if (m_library.load()) {
            return;
        }
    }
    throw MissingLibraryFault(QStringLiteral("The radio link library \"%1\" cannot be loaded: %2")
                                  .arg(LibraryName, m_library.errorString()));
}

QFunctionPointer DravlinkLibrary::resolve(Operation operation)
{
    const QMutexLocker lock(&m_mutex);
    QFunctionPointer& function = m_functions.at(operation);
    if (!function) {
        if (!m_library.isLoaded()) {
            load();
        }
        function = m_library.resolve(OperationNames[operation]);
        if (!function) {
            throw MissingLibraryFault(
                QStringLiteral("The radio link library \"%1\" has no operation \"%2\".")
                    .arg(m_library.fileName(), QLatin1StringView(OperationNames[operation])));
        }
    }
    return function;
}

template<typename... Args>
std::int32_t DravlinkLibrary::call(Operation operation, Args... args)
{
    using Function = std::int32_t (*)(Args...);
    return reinterpret_cast<Function>(resolve(operation))(args...);
}

std::int32_t DravlinkLibrary::menu_init(std::int32_t port, std::int32_t mode, std::int32_t flag)
{
    return call(MenuInit, port, mode, flag);
}

std::int32_t DravlinkLibrary::radio_make_tree_mkdir(const QString& name)
{
    return call(MkDir, AnsiCodec::encode(name).constData());
}

std::int32_t DravlinkLibrary::radio_make_tree_cd(const QString& name)
{
    return call(Cd, AnsiCodec::encode(name).constData());
}

std::int32_t DravlinkLibrary::radio_make_tree_cd_back()
{
    return call(CdBack);
}

std::int32_t DravlinkLibrary::menu_modifier(std::int32_t plu, const QString& text)
{
    return call(MenuModifier, plu, AnsiCodec::encode(text).constData());
}

std::int32_t DravlinkLibrary::menu_item(
    std::int32_t plu, const QString& text, const QString& price, std::int32_t key)
{
    return call(
        MenuItem, plu, AnsiCodec::encode(text).constData(), AnsiCodec::encode(price).constData(), key);
}

std::int32_t DravlinkLibrary::radio_make_tree_modifier_min_max(
    const QString& name, std::int32_t mandatory, std::int32_t minimum, std::int32_t maximum)
{
    return call(ModifierMinMax, AnsiCodec::encode(name).constData(), mandatory, minimum, maximum);
}

std::int32_t DravlinkLibrary::menu_item_modifier_group(
    const QString& name, std::int32_t minimum, std::int32_t maximum, std::int32_t defaults)
{
    return call(ModifierGroup, AnsiCodec::encode(name).constData(), minimum, maximum, defaults);
}

std::int32_t DravlinkLibrary::radio_set_entry(std::int32_t entry, const QString& text)
{
    return call(SetEntry, entry, AnsiCodec::encode(text).constData());
}

std::int32_t DravlinkLibrary::menu_upload()
{
    return call(MenuUpload);
}

std::int32_t DravlinkLibrary::menu_close()
{
    return call(MenuClose);
}

std::int32_t DravlinkLibrary::radio_init(std::int32_t port, std::int32_t mode, std::int32_t flag)
{
    return call(RadioInit, port, mode, flag);
}

std::int32_t DravlinkLibrary::menu_receive(char* pluFields, char* qtyFields, std::int32_t* terminal,
    std::int32_t* table, std::int32_t* productCount, std::int32_t maxProducts)
{
    return call(MenuReceive, pluFields, qtyFields, terminal, table, productCount, maxProducts);
}

std::int32_t DravlinkLibrary::radio_close()
{
    return call(RadioClose);
}
