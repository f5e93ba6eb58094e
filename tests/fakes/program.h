// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program in a temporary folder, without stored settings.
#pragma once

#include "app/application_qt.h"
#include "fakes/modal.h"
#include "settings/keys.h"

#include <optional>

namespace kevra {

class ProgramTest : public testing::Test {
protected:
    ProgramTest() { SettingsStoreQt().deleteSetting(settingsApplication); }
    ~ProgramTest() override
    {
        m_program.reset();
        SettingsStoreQt().deleteSetting(settingsApplication);
    }

    [[nodiscard]] std::string path(const char *name) const { return folder.filePath(name).toStdString(); }
    void put(const char *name, const QByteArray &bytes) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    }
    /// Ends the program that runs, if any, and starts it with a file of the folder.
    void start(const char *name = nullptr)
    {
        m_program.reset();
        m_program.emplace(ProgramFolders{.portable = false, .autosave = folder.path().toStdString()});
        writeSetting(m_program->settingsStore, keys::firstStart, "no");
        if (readSetting(m_program->settingsStore, keys::tempFolder) == keys::tempFolder.fallback)
            writeSetting(m_program->settingsStore, keys::tempFolder, folder.path().toStdString());
        m_program->start(name ? path(name) : "");
    }
    void end() { m_program.reset(); }

    [[nodiscard]] Application &app() { return *m_program; }
    [[nodiscard]] EditorControl &document() { return app().shown().control; }
    template <typename T> T &find(QWidget &window, const char *name) { return *window.findChild<T *>(name); }
    template <typename Button = QPushButton> void click(QWidget &window, const char *name)
    {
        QTest::mouseClick(&find<Button>(window, name), Qt::LeftButton);
    }

    QTemporaryDir folder;

private:
    std::optional<Application> m_program;
};

} // namespace kevra
