#pragma once

#include "RadioLink.h"
#include "document/Fault.h"

#include <QLibrary>
#include <QMutex>

#include <array>

// The radio link library is missing, or lacks an operation the designer calls.
class MissingLibraryFault : public Fault
{
public:
    using Fault::Fault;
};

// The radio link through the shared library "Dravlink": from $QUORVEL_DRAVLINK (the library file)
// when set, else beside the program, else from the system's library path. The library is loaded and
// each operation looked up on its first call, so a missing one ends only the command that needs it.
// Calls may come from any one thread at a time.
class DravlinkLibrary : public RadioLink
{
public:
    DravlinkLibrary();

    std::int32_t menu_init(std::int32_t port, std::int32_t mode, std::int32_t flag) override;
    std::int32_t radio_make_tree_mkdir(const QString& name) override;
    std::int32_t radio_make_tree_cd(const QString& name) override;
    std::int32_t radio_make_tree_cd_back() override;
    std::int32_t menu_modifier(std::int32_t plu, const QString& text) override;
    std::int32_t menu_item(
        std::int32_t plu, const QString& text, const QString& price, std::int32_t key) override;
    std::int32_t radio_make_tree_modifier_min_max(
        const QString& name, std::int32_t mandatory, std::int32_t minimum, std::int32_t maximum) override;
    std::int32_t menu_item_modifier_group(
        const QString& name, std::int32_t minimum, std::int32_t maximum, std::int32_t defaults) override;
    std::int32_t radio_set_entry(std::int32_t entry, const QString& text) override;
    std::int32_t menu_upload() override;
    std::int32_t menu_close() override;
    std::int32_t radio_init(std::int32_t port, std::int32_t mode, std::int32_t flag) override;
    std::int32_t menu_receive(char* pluFields, char* qtyFields, std::int32_t* terminal, std::int32_t* table,
        std::int32_t* productCount, std::int32_t maxProducts) override;
    std::int32_t radio_close() override;

private:
    enum Operation
    {
        MenuInit,
        MkDir,
        Cd,
        CdBack,
        MenuModifier,
        MenuItem,
        ModifierMinMax,
        ModifierGroup,
        SetEntry,
        MenuUpload,
        MenuClose,
        RadioInit,
        MenuReceive,
        RadioClose,
        OperationCount
    };

    template<typename... Args>
    std::int32_t call(Operation operation, Args... args);
    QFunctionPointer resolve(Operation operation);
    void load();

    QMutex m_mutex;
    QLibrary m_library;
    std::array<QFunctionPointer, OperationCount> m_functions {};
};
