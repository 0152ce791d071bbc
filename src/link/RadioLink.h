#pragma once

#include <QString>

#include <cstdint>

// The radio link to the terminals: one method for each library operation the designer calls, with the
// arguments in the library's order. Texts go in as QString; the binding converts them to the link's
// single-byte code page right before each call.
class RadioLink
{
public:
    virtual ~RadioLink() = default;

    // Transmission session.
    virtual std::int32_t menu_init(std::int32_t port, std::int32_t mode, std::int32_t flag) = 0;
    virtual std::int32_t radio_make_tree_mkdir(const QString& name) = 0;
    virtual std::int32_t radio_make_tree_cd(const QString& name) = 0;
    virtual std::int32_t radio_make_tree_cd_back() = 0;
    virtual std::int32_t menu_modifier(std::int32_t plu, const QString& text) = 0;
    virtual std::int32_t menu_item(
        std::int32_t plu, const QString& text, const QString& price, std::int32_t key)
        = 0;
    virtual std::int32_t radio_make_tree_modifier_min_max(
        const QString& name, std::int32_t mandatory, std::int32_t minimum, std::int32_t maximum)
        = 0;
    virtual std::int32_t menu_item_modifier_group(
        const QString& name, std::int32_t minimum, std::int32_t maximum, std::int32_t defaults)
        = 0;
    virtual std::int32_t radio_set_entry(std::int32_t entry, const QString& text) = 0;
    virtual std::int32_t menu_upload() = 0;
    virtual std::int32_t menu_close() = 0;

    // Reception.
    virtual std::int32_t radio_init(std::int32_t port, std::int32_t mode, std::int32_t flag) = 0;
    // The library writes into the two buffers in place: 8-character fields of PLU numbers and of
    // quantities. Returns 0 when it delivered an order.
    virtual std::int32_t menu_receive(char* pluFields, char* qtyFields, std::int32_t* terminal,
        std::int32_t* table, std::int32_t* productCount, std::int32_t maxProducts)
        = 0;
    virtual std::int32_t radio_close() = 0;
};
