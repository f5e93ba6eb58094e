// SPDX-License-Identifier: GPL-3.0-or-later
// Hostile pages beside their text: they are typed in, stopped and closed. Usage: hostile_beside FOLDER
#include "e2e/beside/stage.h"
#include "e2e/hostile/hostile_stage.h"

using namespace kevra;

namespace {

class Stage : public HostileStage, private BesideStage {
public:
    explicit Stage(const QString &folder)
    {
        m_folder = folder.toStdString();
        m_commands.setDocument((folder + '/' + pageName).toStdString(), true);
    }

private:
    QWidget *view() override { return BesideStage::view(); }
    bool isEditors(const QWidget *window) override { return window == &m_panel; }
    void show(const std::string &text) override
    {
        m_text = text;
        m_commands.open();
    }
    void use(const QString &) override
    {
        QTest::mouseClick(HostileStage::page(), Qt::LeftButton, {}, {40, 40});
        m_text += 'x';
        m_commands.textChanged();
    }
    bool hasEnded() override { return !m_note.isEmpty() && !m_loaded; }
    Way leave() override
    {
        QElapsedTimer clock;
        const auto before = queued();
        clock.start();
        m_commands.stop();
        m_commands.close();
        QCoreApplication::processEvents();
        return {clock.elapsed(), queued() - before};
    }
};

} // namespace

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto folder = application.arguments().value(1);
    Stage stage(folder);
    stage.startEngine();
    stage.playAll(QDir(folder));
    return 0;
}
