// SPDX-License-Identifier: GPL-3.0-or-later
// A hand inside the running editor: preloaded into the built program, it presses its keys, chooses its menu
// items and answers its boxes as a user would, on orders that come as lines of JSON over the descriptor in
// KEVRA_HAND. The program itself knows nothing of it.
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtWidgets/QtWidgets>

#include <Qsci/qsciscintillabase.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <random>
#include <unistd.h>

namespace {

QWidget *window(const char *name)
{
    for (auto *widget : QApplication::topLevelWidgets())
        if (widget->objectName() == name)
            return widget;
    return nullptr;
}

QsciScintillaBase *document()
{
    auto *main = window("fedit");
    return main ? main->findChild<QsciScintillaBase *>("t1") : nullptr;
}

QByteArray text()
{
    auto *t1 = document();
    const auto length = t1->SendScintilla(QsciScintillaBase::SCI_GETLENGTH);
    QByteArray bytes(static_cast<qsizetype>(length) + 1, '\0');
    t1->SendScintilla(QsciScintillaBase::SCI_GETTEXT, static_cast<unsigned long>(length + 1), bytes.data());
    bytes.chop(1);
    // The control breaks overlong lines by a byte that no text has.
    return bytes.replace("\xFF\n", "");
}

void press(QWidget *widget, int key, Qt::KeyboardModifiers modifiers, const QString &typed)
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers, typed);
    QApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, typed);
    QApplication::sendEvent(widget, &up);
}

void type(const QString &typed)
{
    for (const auto c : typed)
        press(document(), c == u'\n' ? int(Qt::Key_Return) : c.toUpper().unicode(), {},
            c == u'\n' ? QString("\r") : QString(c));
}

QAction *action(const QString &name)
{
    auto *main = window("fedit");
    return main ? main->findChild<QAction *>(name) : nullptr;
}

QString boxText(QWidget *box)
{
    if (const auto *message = qobject_cast<QMessageBox *>(box))
        return message->text();
    return box ? box->windowTitle() : QString();
}

bool answer(const QString &caption)
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    for (auto *button : box ? box->buttons() : QList<QAbstractButton *>())
        if (button->text().remove(u'&') == caption) {
            button->click();
            return true;
        }
    return false;
}

bool choose(const QString &path)
{
    auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    auto *name = dialog ? dialog->findChild<QLineEdit *>("fileNameEdit") : nullptr;
    if (!name)
        return false;
    if (path.isEmpty()) {
        dialog->reject();
        return true;
    }
    name->setText(path);
    QMetaObject::invokeMethod(dialog, "accept");
    return true;
}

/// As a file manager does.
void drop(const QByteArray &path)
{
    QMimeData data;
    data.setUrls({QUrl::fromEncoded("file://" + path.toPercentEncoding("/"))});
    // Qt drops on what was entered.
    QDragEnterEvent enter({}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(window("fedit"), &enter);
    QDropEvent event({}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(window("fedit"), &event);
}

/// Random keys, clicks and commands; boxes are answered at random. Printing and leaving are left out.
class Monkey {
public:
    Monkey(unsigned seed, int steps)
        : m_random(seed)
        , m_left(steps)
    {
        for (auto *one : window("fedit")->findChildren<QAction *>())
            if (!one->objectName().isEmpty() && !one->menu() && !forbidden().contains(one->objectName()))
                m_actions.append(one);
        m_timer.callOnTimeout([this] { step(); });
        m_timer.start(0);
    }
    [[nodiscard]] int left() const { return m_left; }
    [[nodiscard]] QJsonArray log() const { return QJsonArray::fromStringList(m_log); }

private:
    static QStringList forbidden()
    {
        return {"mexit", "mprint", "mex", "msaveas", "msaveplain", "mcallhelp", "mvbsinfo"};
    }
    int pick(int below) { return std::uniform_int_distribution(0, below - 1)(m_random); }

    void step()
    {
        if (m_left <= 0)
            return m_timer.stop();
        --m_left;
        if (auto *modal = QApplication::activeModalWidget())
            return answerBox(modal);
        if (auto *popup = QApplication::activePopupWidget()) {
            popup->close();
            return;
        }
        const int what = pick(100);
        if (what < 60)
            typeSomething();
        else if (what < 90)
            pressSomething();
        else if (what < 95)
            click();
        else
            chooseCommand();
    }
    void answerBox(QWidget *modal)
    {
        if (auto *box = qobject_cast<QMessageBox *>(modal))
            box->buttons().at(pick(static_cast<int>(box->buttons().size())))->click();
        else if (auto *dialog = qobject_cast<QDialog *>(modal))
            dialog->reject();
        else
            modal->close();
    }
    void typeSomething()
    {
        static const QString letters = "<>\"'= abcdeIfThenDim\n\t.()%1234äß→";
        type(QString(letters[pick(static_cast<int>(letters.size()))]));
    }
    void pressSomething()
    {
        constexpr int keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home,
            Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Return,
            Qt::Key_Z, Qt::Key_Y, Qt::Key_X, Qt::Key_V, Qt::Key_C};
        const int key = keys[pick(16)];
        Qt::KeyboardModifiers modifiers
            = key >= Qt::Key_A && key <= Qt::Key_Z ? Qt::ControlModifier : Qt::NoModifier;
        if (pick(3) == 0)
            modifiers |= Qt::ShiftModifier;
        press(document(), key, modifiers, {});
    }
    void click()
    {
        auto *viewport = document()->viewport();
        const QPointF place(pick(std::max(1, viewport->width())), pick(std::max(1, viewport->height())));
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, viewport->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
            QApplication::sendEvent(viewport, &event);
        }
    }
    void chooseCommand()
    {
        if (m_actions.isEmpty())
            return;
        auto *one = m_actions[pick(static_cast<int>(m_actions.size()))];
        m_log.append(one->objectName());
        if (m_log.size() > 20)
            m_log.removeFirst();
        // A timer does not fire again while its own call is open, and a command may open a box.
        if (one->isEnabled())
            QTimer::singleShot(0, one, &QAction::trigger);
        if (auto *main = window("fedit"); main && !main->isVisible())
            main->show();
    }

    std::mt19937 m_random;
    int m_left;
    QList<QAction *> m_actions;
    QStringList m_log;
    QTimer m_timer;
};

using FaultControl = long (*)(const char *, long, int);

/// The fault injector may be preloaded beside this library.
long fault(const QJsonObject &order)
{
    static const auto control = reinterpret_cast<FaultControl>(::dlsym(RTLD_DEFAULT, "kevra_fault_control"));
    if (!control)
        return -1;
    return control(
        order["call"].toString().toUtf8().constData(), order["at"].toInt(), order["errno"].toInt());
}

class Hand : public QObject {
public:
    explicit Hand(int descriptor)
        : QObject(qApp)
        , m_descriptor(descriptor)
        , m_notifier(descriptor, QSocketNotifier::Read)
    {
        connect(&m_notifier, &QSocketNotifier::activated, this, [this] { receive(); });
    }

private:
    void receive()
    {
        char buffer[65536];
        const auto got = ::read(m_descriptor, buffer, sizeof buffer);
        if (got <= 0)
            return m_notifier.setEnabled(false);
        m_pending.append(buffer, got);
        for (auto end = m_pending.indexOf('\n'); end >= 0; end = m_pending.indexOf('\n')) {
            const auto order = QJsonDocument::fromJson(m_pending.left(end)).object();
            m_pending.remove(0, end + 1);
            reply(obey(order));
        }
    }
    void reply(const QJsonObject &result)
    {
        auto line = QJsonDocument(result).toJson(QJsonDocument::Compact) + '\n';
        for (qsizetype done = 0; done < line.size();) {
            const auto written = ::write(
                m_descriptor, line.constData() + done, static_cast<std::size_t>(line.size() - done));
            if (written > 0)
                done += written;
        }
    }
    /// What opens a box returns at once and goes on in the event loop.
    void later(std::function<void()> what) { QTimer::singleShot(0, this, std::move(what)); }

    QJsonObject obey(const QJsonObject &order)
    {
        const auto what = order["do"].toString();
        const auto argument = order["with"].toString();
        if (what == "ready")
            return {{"ok",
                window("fedit") && window("fedit")->isVisible() && !QApplication::activeModalWidget()}};
        if (what == "trigger") {
            auto *one = action(argument);
            if (!one || !one->isEnabled())
                return {{"ok", false}};
            later([one] { one->trigger(); });
            return {{"ok", true}};
        }
        if (what == "press") {
            auto *from = window(order["in"].toString("fedit").toUtf8());
            auto *button = from ? from->findChild<QAbstractButton *>(argument) : nullptr;
            if (button)
                later([button] { button->click(); });
            return {{"ok", button != nullptr}};
        }
        if (what == "fill") {
            auto *in = window(order["in"].toString().toUtf8());
            auto *field = in ? in->findChild<QLineEdit *>(order["field"].toString()) : nullptr;
            if (field)
                field->setText(argument);
            return {{"ok", field != nullptr}};
        }
        if (what == "bar") {
            auto *label = window("fedit")->findChild<QLabel *>(argument + "text");
            return {{"ok", label && label->isVisible()}, {"text", label ? label->text() : QString()}};
        }
        if (what == "shown") {
            auto *shown = window(argument.toUtf8());
            return {{"ok", shown && shown->isVisible()}};
        }
        if (what == "previewed")
            return {{"ok", window("fbrowser") && window("fbrowser")->isVisible()}};
        if (what == "back") {
            QMetaObject::invokeMethod(window("fbrowser"), "textAsked", Qt::QueuedConnection);
            return {{"ok", true}};
        }
        if (what == "drop") {
            later([argument] { drop(QFile::encodeName(argument)); });
            return {{"ok", true}};
        }
        if (what == "close") {
            later([] { window("fedit")->close(); });
            return {{"ok", true}};
        }
        if (what == "box")
            return {{"ok", QApplication::activeModalWidget() != nullptr},
                {"text", boxText(QApplication::activeModalWidget())}};
        if (what == "answer")
            return {{"ok", answer(argument)}};
        if (what == "choose")
            return {{"ok", choose(argument)}};
        if (what == "type")
            return type(argument), QJsonObject{{"ok", true}};
        if (what == "key")
            return press(document(), order["key"].toInt(), Qt::KeyboardModifiers(order["modifiers"].toInt()),
                       argument),
                   QJsonObject{{"ok", true}};
        if (what == "length")
            return {{"ok", true},
                {"length", static_cast<qint64>(document()->SendScintilla(QsciScintillaBase::SCI_GETLENGTH))}};
        if (what == "text")
            return {{"ok", true}, {"text", QString::fromLatin1(text().toBase64())}};
        if (what == "monkey") {
            m_monkey = std::make_unique<Monkey>(order["seed"].toInt(), order["steps"].toInt());
            return {{"ok", true}};
        }
        if (what == "monkeyleft")
            return {{"ok", true}, {"left", m_monkey->left()}, {"log", m_monkey->log()}};
        if (what == "fault")
            return {{"ok", true}, {"hits", static_cast<qint64>(fault(order))}};
        return {{"ok", false}};
    }

    int m_descriptor;
    QSocketNotifier m_notifier;
    QByteArray m_pending;
    std::unique_ptr<Monkey> m_monkey;
};

void reachIn()
{
    bool set = false;
    const int descriptor = qEnvironmentVariableIntValue("KEVRA_HAND", &set);
    if (!set)
        return;
    // What the program starts is not the program.
    for (const char *name : {"KEVRA_HAND", "LD_PRELOAD"})
        qunsetenv(name);
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    new Hand(descriptor);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(reachIn)

/// In place of Qt's own: the minutes between autosaves are seconds here.
void QTimer::start(int milliseconds)
{
    static const auto real
        = reinterpret_cast<void (*)(QTimer *, int)>(::dlsym(RTLD_NEXT, "_ZN6QTimer5startEi"));
    real(this, milliseconds < 60'000 ? milliseconds : milliseconds / 60);
}
