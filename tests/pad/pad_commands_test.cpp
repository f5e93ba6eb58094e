// SPDX-License-Identifier: GPL-3.0-or-later
#include "pad/pad_commands.h"

#include "editor/memory_surface.h"
#include "fakes/desktop.h"
#include "fakes/marked_text.h"

#include <gtest/gtest.h>

#include <map>

namespace kevra {
namespace {

struct Pad {
    MemorySurface document;
    MemorySurface surface;
    FakeClipboard clipboard;
    PadCommands commands{surface, document, clipboard};

    /// Steps: x cut, c copy, v paste, e clear, a select all, u undo, 0 empty, "!" another program copies. An
    /// upper-case letter is typed at the start of the text, Y after its first character.
    void run(std::string_view steps)
    {
        const std::map<char, void (PadCommands::*)()> run{{'x', &PadCommands::PadCut},
            {'c', &PadCommands::PadCopy}, {'v', &PadCommands::PadPaste}, {'e', &PadCommands::PadClear},
            {'a', &PadCommands::PadSelectAll}, {'u', &PadCommands::PadUndo}, {'0', &PadCommands::empty}};
        for (const char step : steps) {
            if (const auto command = run.find(step); command != run.end()) {
                (commands.*command->second)();
            } else if (step == '!') {
                clipboard.content = "other";
            } else {
                const Offset at = step == 'Y' ? 1 : 0;
                surface.Replace({at, at}, std::string(1, step));
                commands.textChanged(at, 0, 1);
            }
        }
    }
};

TEST(PadCommands, EachIsUndoneOnce)
{
    struct {
        const char *name;
        const char *before;
        const char *clipboard;
        const char *steps;
        const char *after;
        const char *clipboardAfter;
    } const cases[] = {
        {"cut nothing", "ab|c", "old", "x", "ab|c", "old"},
        {"cut a word", "a[b]c", "old", "x", "a|c", "b"},
        {"undo twice", "a[b]c", "", "xuu", "ab|c", "b"},
        {"undo the cut of a line", "1\r\n[2\r\n]3", "", "xu", "1\r\n2|\r\n3", "2\r\n"},
        {"undo the cut after another program copied", "a[b]c", "", "x!u", "ab|c", "other"},
        {"undo the cut after typing before it", "a[b]c", "", "xZu", "Zab|c", "b"},
        {"undo the copy", "a[b]c", "old", "cu", "a[b]c", "old"},
        {"only the last is undone", "a[b]c", "", "xvu", "a|c", "b"},
        {"paste drops one final line break", "a|c", "b\r\n\r\n", "v", "ab\r\n|c", "b\r\n\r\n"},
        {"undo the paste", "a[b]c", "xyz", "vu", "a|c", "xyz"},
        {"undo the paste after typing before it", "a|c", "xyz", "vZu", "Za|c", "xyz"},
        {"undo the paste after typing into it", "|", "abc", "vYu", "|", "abc"},
        {"paste without text", "a[b]c", "", "v", "a|c", ""},
        {"paste a line break alone", "a[b]c", "\r\n", "v", "a|c", "\r\n"},
        {"clear", "a[b]c", "old", "e", "|", "abc"},
        {"undo the clear", "a[b]c", "old", "eu", "abc|", "abc"},
        {"clear an empty pad", "|", "old", "e", "|", ""},
        {"nothing to undo once emptied", "a[b]c", "old", "e0u", "|", "abc"},
        {"select all", "a|bc", "", "a", "[abc]", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        Pad pad;
        loadMarked(pad.surface, c.before);
        pad.clipboard.content = c.clipboard;
        pad.run(c.steps);
        EXPECT_EQ(markedText(pad.surface), c.after);
        EXPECT_EQ(pad.clipboard.content, c.clipboardAfter);
    }
}

TEST(PadCommands, PastedTextTakesTheDocumentsFaceAndCutTextComesBackBlack)
{
    Pad pad;
    pad.document.SetFont({"Verdana", 14});
    loadMarked(pad.surface, "a[b]c");
    pad.surface.SetSelColor(colours::fault);
    pad.run("xu");
    EXPECT_EQ(pad.surface.Font(), (EditorFont{"Verdana", 10}));
    EXPECT_EQ(pad.surface.ColourAt(1), colours::black);
}

} // namespace
} // namespace kevra
