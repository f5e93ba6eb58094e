// SPDX-License-Identifier: GPL-3.0-or-later
// Shows texts beside their pages as it is told on standard input, one object of JSON a line, and answers each
// with one line:
//   {"do": "load", "path": P}                         how it went
//   {"do": "edit", "at": N, "length": N, "text": T}   the call the page was asked with; N in bytes
//   {"do": "ask", "script": S}                        what the script, in the following world, comes to
//   {"do": "click", "x": N, "y": N}                   where the caret was put; -1 for nowhere
#include "e2e/beside/stage.h"

#include <QtTest/QTest>

#include <cstdio>
#include <iostream>

using namespace kevra;

namespace {

constexpr int patience = 30000; ///< ms
constexpr int clickPatience = 1500;

class Driver : public BesideStage {
public:
    [[nodiscard]] QString run(const QJsonObject &step)
    {
        const auto what = step["do"].toString();
        if (what == "load")
            return open(step["path"].toString());
        if (what == "edit")
            return edit(step["at"].toInteger(), step["length"].toInteger(), step["text"].toString());
        return what == "ask" ? askPage(step["script"].toString())
                             : click(step["x"].toInt(), step["y"].toInt());
    }

private:
    [[nodiscard]] QString open(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return "no file";
        m_commands.close();
        m_text = file.readAll().toStdString();
        m_folder = QFileInfo(path).path().toStdString();
        m_note.clear();
        m_commands.setDocument(path.toStdString(), true);
        return follow([this] { m_commands.open(); });
    }
    [[nodiscard]] QString edit(qint64 at, qint64 length, const QString &text)
    {
        m_text.replace(static_cast<std::size_t>(at), static_cast<std::size_t>(length), text.toStdString());
        return follow([this] { m_commands.textChanged(); });
    }
    template <typename Step> [[nodiscard]] QString follow(Step step)
    {
        m_current = false;
        step();
        const bool followed = QTest::qWaitFor([this] { return m_current || !m_note.isEmpty(); }, patience);
        return !m_note.isEmpty() ? m_note : followed ? m_way : "too late";
    }
    [[nodiscard]] QString askPage(const QString &script)
    {
        m_answer.reset();
        m_mine = true;
        m_control.ask(script.toStdString());
        std::ignore = QTest::qWaitFor([this] { return m_answer.has_value(); }, patience);
        m_mine = false;
        return m_answer.value_or("too late");
    }
    [[nodiscard]] QString click(int x, int y)
    {
        m_clicked.reset();
        QTest::mouseClick(page(), Qt::LeftButton, {}, {x, y});
        std::ignore = QTest::qWaitFor([this] { return m_clicked.has_value(); }, clickPatience);
        // Two clicks in a row would be a double click.
        QTest::qWait(QApplication::doubleClickInterval());
        return QString::number(m_clicked.value_or(-1));
    }

    [[nodiscard]] bool takeAnswer(const QString &answer) override
    {
        if (m_mine)
            m_answer = answer;
        else
            m_current = m_askedNewest && answer == "done";
        return m_mine;
    }
    void prepare(PageTextRequest request) override
    {
        m_preparedText = m_text;
        BesideStage::prepare(std::move(request));
    }
    void reload(std::shared_ptr<const PageText> page) override
    {
        m_reloaded = true;
        BesideStage::reload(std::move(page));
    }
    void ask(const std::string &call) override
    {
        m_askedNewest = m_preparedText == m_text;
        const auto name = QString::fromStdString(call.substr(0, call.find('('))).section('.', 1);
        if (name == "show" || name == "change")
            m_way = std::exchange(m_reloaded, false) ? "reload" : name;
        BesideStage::ask(call);
    }
    void selectText(TextRange range) override { m_clicked = range.start; }

    std::string m_preparedText;
    QString m_way;
    std::optional<QString> m_answer;
    std::optional<Offset> m_clicked;
    bool m_askedNewest = false;
    bool m_current = false; ///< the page is the text
    bool m_mine = false; ///< the script asked is not the editor's
    bool m_reloaded = false;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setDoubleClickInterval(1);
    Driver driver;
    for (std::string line; std::getline(std::cin, line);) {
        const auto step = QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
        std::printf("%s\n", qPrintable(driver.run(step).simplified()));
        std::fflush(stdout);
    }
    return 0;
}
