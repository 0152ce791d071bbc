#pragma once

#include "link/RadioLink.h"

// A radio link that accepts every call and has nothing to deliver; fakes override the calls they
// script.
class IdleLink : public RadioLink
{
public:
    std::int32_t menu_init(std::int32_t, std::int32_t, std::int32_t) override { return 0; }
    std::int32_t radio_make_tree_mkdir(const QString&) override { return 0; }
    std::int32_t radio_make_tree_cd(const QString&) override { return 0; }
    std::int32_t radio_make_tree_cd_back() override { return 0; }
    std::int32_t menu_modifier(std::int32_t, const QString&) override { return 0; }
    std::int32_t menu_item(std::int32_t, const QString&, const QString&, std::int32_t) override { return 0; }
    std::int32_t radio_make_tree_modifier_min_max(
        const QString&, std::int32_t, std::int32_t, std::int32_t) override
    {
        return 0;
    }
    std::int32_t menu_item_modifier_group(const QString&, std::int32_t, std::int32_t, std::int32_t) override
    {
        return 0;
    }
    std::int32_t radio_set_entry(std::int32_t, const QString&) override { return 0; }
    std::int32_t menu_upload() override { return 0; }
    std::int32_t menu_close() override { return 0; }
    std::int32_t radio_init(std::int32_t, std::int32_t, std::int32_t) override { return 0; }
    std::int32_t menu_receive(
        char*, char*, std::int32_t*, std::int32_t*, std::int32_t*, std::int32_t) override
    {
        return 1;
    }
    std::int32_t radio_close() override { return 0; }
};
