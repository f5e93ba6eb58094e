// SPDX-License-Identifier: GPL-3.0-or-later
// Starts kevra-cli as a language server for every file that may hold VBScript.
const { execFile } = require('child_process');
const { promisify } = require('util');
const { commands, window, workspace } = require('vscode');
const { LanguageClient } = require('vscode-languageclient/node');

const extensions = ['vbs', 'wsf', 'wsc', 'sct', 'asp', 'asa', 'hta', 'htm', 'html'];
// A pattern is case-sensitive, names on Windows are not: [vV][bB][sS].
const inAnyCase = (extension) => extension.replace(/./g, (letter) => `[${letter}${letter.toUpperCase()}]`);
const documentSelector = [
    { scheme: 'file', pattern: `**/*.{${extensions.map(inAnyCase)}}` },
    { scheme: 'untitled', language: 'vb' },
];

let client; // only while it runs
let settled = Promise.resolve();

async function stop() {
    const running = client;
    client = undefined;
    await running?.stop();
}

async function reportNotStarted(command, error) {
    const settings = 'Open Settings';
    const answer = await window.showErrorMessage(
        `VBScript with KEVRA: "${command}" cannot be started (${error.code ?? error.message}). ` +
        'Install KEVRA, or set "kevra.path" to the whole path of kevra-cli.', settings);
    if (answer === settings)
        commands.executeCommand('workbench.action.openSettings', 'kevra.path');
}

async function start() {
    const command = workspace.getConfiguration('kevra').get('path');
    try {
        await promisify(execFile)(command, ['--version']);
    } catch (error) {
        // Not awaited: it ends when the user answers.
        reportNotStarted(command, error);
        return;
    }
    const starting = new LanguageClient('kevra', 'KEVRA', { command, args: ['lsp'] }, { documentSelector });
    await starting.start();
    client = starting;
}

function restart() {
    settled = settled.then(stop).catch(() => {}).then(start);
    return settled;
}

exports.activate = (context) => {
    context.subscriptions.push(workspace.onDidChangeConfiguration((change) => {
        if (change.affectsConfiguration('kevra.path'))
            restart().catch((error) => window.showErrorMessage(`VBScript with KEVRA: ${error.message}`));
    }));
    return restart();
};

exports.deactivate = () => settled.then(stop);
