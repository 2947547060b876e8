#pragma once

#include "PomwickPreferencesViewController.h"
#include "TemporaryDeviceRoot.h"

#include <gtest/gtest.h>
#include <memory>

namespace pomwick::test {

// A settings page built offscreen on a private bus, in a fresh device root holding the bundle.
class ScreenFixture : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Builds the page (again), as opening it does.
    PomwickPreferencesViewController& open();
    TableViewCell* cell(int section, int row) const;
    QString text(int section, int row) const;
    template <typename Control> Control* control(int section, int row) const {
        return cell(section, row)->findChild<Control*>();
    }
    // Checks the message box on screen shows the title and text with a single "Ok" button.
    static void expectAlert(const QString& title, const QString& text);
    // The stored text of a key, read from the file as another program would.
    std::string stored(std::string_view key) const;

    TemporaryDeviceRoot root;
    std::unique_ptr<PomwickPreferencesViewController> screen;
};

} // namespace pomwick::test
