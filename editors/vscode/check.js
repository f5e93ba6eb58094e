// SPDX-License-Identifier: GPL-3.0-or-later
// Talks to kevra-cli through the protocol library that the extension brings: node check.js EXTENSION KEVRA-CLI
// Leaves with code 0, or says what differs and leaves with 1.
const assert = require('assert');
const { spawn } = require('child_process');
const path = require('path');

const [extension, program] = process.argv.slice(2).map((name) => path.resolve(name));
const protocol = require(path.join(extension, 'node_modules/vscode-languageserver-protocol/node.js'));
const uri = 'file:///w/ä.vbs';
const text = 'Dim total\r\nIf total = 1 The\r\nEnd If\r\n';
const capabilities = {
    textDocument: { publishDiagnostics: { relatedInformation: true }, completion: { completionItem: { snippetSupport: true } } },
};

async function run() {
    const server = spawn(program, ['lsp'], { stdio: ['pipe', 'pipe', 'inherit'] });
    const ended = new Promise((resolve) => server.on('exit', resolve));
    const connection = protocol.createProtocolConnection(
        new protocol.StreamMessageReader(server.stdout), new protocol.StreamMessageWriter(server.stdin));
    const published = [];
    let arrived = () => {};
    connection.onNotification(protocol.PublishDiagnosticsNotification.type, (params) => {
        published.push(params);
        arrived();
    });
    const next = () => new Promise((resolve) => { arrived = () => resolve(published.at(-1)); });
    connection.listen();

    await connection.sendRequest(protocol.InitializeRequest.type, { processId: process.pid, rootUri: null, capabilities });
    await connection.sendNotification(protocol.InitializedNotification.type, {});
    let answer = next();
    await connection.sendNotification(protocol.DidOpenTextDocumentNotification.type,
        { textDocument: { uri, languageId: 'vb', version: 1, text } });
    const first = await answer;
    assert.strictEqual(first.uri, uri);
    assert.ok(first.diagnostics.some((d) => d.severity === 1 && d.range.start.line === 1), JSON.stringify(first));

    answer = next();
    const end = { line: 1, character: 16 };
    await connection.sendNotification(protocol.DidChangeTextDocumentNotification.type,
        { textDocument: { uri, version: 2 }, contentChanges: [{ range: { start: end, end }, text: 'n' }] });
    const second = await answer;
    assert.strictEqual(second.version, 2);
    assert.ok(second.diagnostics.every((d) => d.severity !== 1), JSON.stringify(second));

    const edit = await connection.sendRequest(protocol.RenameRequest.type,
        { textDocument: { uri }, position: { line: 1, character: 4 }, newName: 'sum' });
    assert.strictEqual(edit.changes[uri].length, 2);
    await connection.sendRequest(protocol.ShutdownRequest.type);
    await connection.sendNotification(protocol.ExitNotification.type);
    assert.strictEqual(await ended, 0);
}

const tooLong = setTimeout(() => { console.error('no answer'); process.exit(1); }, 60000);
run().then(() => clearTimeout(tooLong), (error) => { console.error(error); process.exit(1); });
