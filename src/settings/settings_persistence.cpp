// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_persistence.h"

#include "settings/fonts.h"
#include "settings/keys.h"
#include "settings/options.h"
#include "storage/default_folder.h"
#include "text/paths.h"

#include <charconv>
#include <optional>

namespace kevra {

namespace {

constexpr std::uint32_t maxColour = 0xFFFFFF;

/// The value of a text that is exactly one whole number; anything else counts as not stored.
std::optional<int> wholeNumber(std::string_view text)
{
    int value = 0;
    const auto *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

Colour codeColour(std::string_view stored)
{
    const auto value = wholeNumber(stored).value_or(0);
    if (value <= 0 || static_cast<std::uint32_t>(value) > maxColour)
        return colours::defaultCode;
    return Colour{static_cast<std::uint32_t>(value)};
}

} // namespace

SettingsPersistence::SettingsPersistence(SettingsStore &store, EditorOptions &editorOptions,
    ApplicationState &application, OptionsShown &optionsShown, SettingsViews &views)
    : m_store(store)
    , m_editorOptions(editorOptions)
    , m_application(application)
    , m_optionsShown(optionsShown)
    , m_views(views)
{
}

std::string SettingsPersistence::read(const SettingKey &key) const
{
    return readSetting(m_store, key);
}

void SettingsPersistence::write(const SettingKey &key, std::string_view value)
{
    writeSetting(m_store, key, value);
}

bool SettingsPersistence::load(Option option)
{
    const bool on = storedOption(m_store, option);
    if (const auto flag = rowOf(option).flag)
        m_editorOptions.*flag = on;
    m_optionsShown.lamps[option] = on;
    m_views.tools().showOption(option, on);
    return on;
}

int SettingsPersistence::number(const SettingKey &key, int fallback) const
{
    return wholeNumber(read(key)).value_or(fallback);
}

void SettingsPersistence::writeNumber(const SettingKey &key, int value)
{
    write(key, std::to_string(value));
}

void SettingsPersistence::loadTempFolder()
{
    const auto stored = read(keys::tempFolder);
    const std::string_view folder = equalIgnoringCase(stored, "none") ? defaultTempFolder : stored;
    m_application.tempFolder = withoutTrailingSeparator(folder);
}

void SettingsPersistence::loadExternalProgram()
{
    const auto path = read(keys::programPath);
    const bool none = equalIgnoringCase(path, "no") || equalIgnoringCase(path, "none");
    m_application.programPath = none ? "none" : path;
    const auto menu = read(keys::programMenu);
    m_application.programMenuText = equalIgnoringCase(menu, "no") ? "EXE" : menu;
    m_views.tools().showProgramMenu(m_application.programMenuText);
}

void SettingsPersistence::loadFonts()
{
    const auto face = chosenFace(read(keys::fontFace));
    const auto size = chosenSize(read(keys::fontSize));
    m_optionsShown.fontFace = face.text;
    m_optionsShown.fontSize = size.text;
    m_views.fonts().selectFace(face.position);
    m_views.fonts().selectSize(size.position);
}

void SettingsPersistence::loadEditorGeometry()
{
    auto &window = m_views.placement();
    if (read(keys::editorState) != "0")
        return window.maximise();
    const auto now = window.normalGeometry();
    window.placeNormal({.left = number(keys::editorLeft, now.left),
        .top = number(keys::editorTop, now.top),
        .width = number(keys::editorWidth, now.width),
        .height = number(keys::editorHeight, now.height)});
}

void SettingsPersistence::loadPanelType()
{
    const auto type = read(keys::panelType);
    if (!equalIgnoringCase(type, "none") && type != "1")
        m_views.tools().showScriptTools();
}

void SettingsPersistence::loadCodeColour()
{
    m_editorOptions.codeColour = codeColour(read(keys::codeColour));
    load(Option::ColourCoding);
}

void SettingsPersistence::loadPadGeometry()
{
    const auto inner = m_views.placement().innerArea();
    m_application.padGeometry = {.left = number(keys::padLeft, inner.left),
        .top = number(keys::padTop, inner.bottom() / 2),
        .width = number(keys::padWidth, inner.width),
        .height = number(keys::padHeight, inner.height / 2)};
}

void SettingsPersistence::loadComments()
{
    load(Option::Comments);
}

void SettingsPersistence::loadLineDebug()
{
    load(Option::LineDebug);
}

void SettingsPersistence::loadIfCheck()
{
    load(Option::IfChecking);
}

void SettingsPersistence::loadAutosave()
{
    const bool wanted = load(Option::Autosave);
    const int minutes = number(keys::autosaveMinutes, 0);
    m_application.autosaveMinutes = m_optionsShown.autosaveMinutes = minutes > 0 ? minutes : 0;
    m_application.autosaveOn = wanted && minutes > 0;
    if (m_application.autosaveOn)
        m_views.autosaveTimer().start(minutes);
    else
        m_views.autosaveTimer().stop();
    // Without an interval autosave does not run, even if it is stored as on.
    m_views.tools().showOption(Option::Autosave, m_application.autosaveOn);
}

void SettingsPersistence::loadFsoMenu()
{
    load(Option::FsoMenu);
}

bool SettingsPersistence::loadFirstStart() const
{
    return equalIgnoringCase(read(keys::firstStart), "yes");
}

void SettingsPersistence::saveFirstStartDone()
{
    write(keys::firstStart, "no");
}

void SettingsPersistence::saveEditorGeometry()
{
    const auto &window = m_views.placement();
    if (window.windowState() != WindowState::Normal)
        return write(keys::editorState, "2");
    write(keys::editorState, "0");
    const auto geometry = window.normalGeometry();
    writeNumber(keys::editorTop, geometry.top);
    writeNumber(keys::editorLeft, geometry.left);
    writeNumber(keys::editorWidth, geometry.width);
    writeNumber(keys::editorHeight, geometry.height);
}

void SettingsPersistence::savePadGeometry()
{
    if (m_application.padState != PadState::Normal)
        return;
    const auto &pad = m_application.padGeometry;
    writeNumber(keys::padTop, pad.top);
    writeNumber(keys::padLeft, pad.left);
    writeNumber(keys::padWidth, pad.width);
    writeNumber(keys::padHeight, pad.height);
}

void SettingsPersistence::savePanelType(bool scriptTools)
{
    write(keys::panelType, scriptTools ? "2" : "1");
}

void SettingsPersistence::cleanOldSettings()
{
    constexpr std::string_view older[] = {"kevraed", "kevra28"};
    constexpr std::string_view sections[] = {optionsSection, windowsSection};
    // Writing to a section makes it exist, so that deleting it cannot fail.
    for (const auto app : older)
        for (const auto section : sections)
            m_store.saveSetting(app, section, "cleaner", "x");
    for (const auto app : older) {
        for (const auto section : sections)
            m_store.deleteSetting(app, section);
        m_store.deleteSetting(app);
    }
}

} // namespace kevra
