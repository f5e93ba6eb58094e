// SPDX-License-Identifier: GPL-3.0-or-later
// Starts kevra-cli as a language server for every file that may hold VBScript.
const { workspace } = require('vscode');
const { LanguageClient } = require('vscode-languageclient/node');

let client;

exports.activate = () => {
    const command = workspace.getConfiguration('kevra').get('path');
    client = new LanguageClient('kevra', 'KEVRA', { command, args: ['lsp'] }, {
        documentSelector: [
            { scheme: 'file', pattern: '**/*.{vbs,wsf,wsc,sct,asp,asa,hta,htm,html}' },
            { scheme: 'untitled', language: 'vb' },
        ],
    });
    return client.start();
};

exports.deactivate = () => client?.stop();
