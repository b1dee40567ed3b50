import assert from "node:assert/strict";
import { ChildProcess, spawn } from "node:child_process";
import { mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, test } from "node:test";
import { pathToFileURL } from "node:url";

import {
    createProtocolConnection,
    Diagnostic,
    DocumentSymbol,
    InitializeResult,
    Location,
    ProtocolConnection,
    PublishDiagnosticsNotification,
    StreamMessageReader,
    StreamMessageWriter,
    TextEdit,
    WorkspaceEdit,
} from "vscode-languageserver-protocol/node";
import * as lsp from "vscode-languageserver-protocol/node";

const deckText = [
    "RUNSPEC",
    "OIL",
    "WATER",
    "DIMENS",
    " 2 2 1 /",
    "START",
    " 1 JAN 2020 /",
    "GRID",
    "PORO",
    " 4*0.2 /",
    "SCHEDULE",
    "INCLUDE",
    " 'wells.inc' /",
    "",
].join("\n");
const wellsText = [
    "WELSPECS",
    "  P1 ALL 1 1 1* OIL /",
    "/",
    "WCONPROD",
    "  P1 OPEN ORAT 900 /",
    "/",
    "",
].join("\n");

const folder = mkdtempSync(join(tmpdir(), "quor-"));
const uriOf = (name: string) => pathToFileURL(join(folder, name)).toString();
const wells = { uri: uriOf("wells.inc") };
let server: ChildProcess;
let connection: ProtocolConnection;
let capabilities: InitializeResult["capabilities"];

/** The findings of a file that are published next and satisfy `isWanted`. */
const waiting: { uri: string; isWanted(found: Diagnostic[]): boolean; resolve(found: Diagnostic[]): void }[] = [];
function findings(uri: string, isWanted: (found: Diagnostic[]) => boolean): Promise<Diagnostic[]> {
    return new Promise((resolve) => waiting.push({ uri, isWanted, resolve }));
}

before(async () => {
    const program = process.env["QUOR"];
    assert.ok(program, "QUOR is the path of the program");
    writeFileSync(join(folder, "model.data"), deckText);
    writeFileSync(join(folder, "wells.inc"), wellsText);
    server = spawn(program, ["language-server"], { stdio: ["pipe", "pipe", "inherit"] });
    assert.ok(server.stdout && server.stdin);
    connection = createProtocolConnection(
        new StreamMessageReader(server.stdout), new StreamMessageWriter(server.stdin));
    connection.onNotification(PublishDiagnosticsNotification.type, ({ uri, diagnostics }) => {
        for (const wait of waiting.filter((each) => each.uri === uri && each.isWanted(diagnostics))) {
            waiting.splice(waiting.indexOf(wait), 1);
            wait.resolve(diagnostics);
        }
    });
    connection.listen();
    const result = await connection.sendRequest(lsp.InitializeRequest.type, {
        processId: process.pid,
        rootUri: pathToFileURL(folder).toString(),
        workspaceFolders: [{ uri: pathToFileURL(folder).toString(), name: "model" }],
        capabilities: {
            textDocument: {
                documentSymbol: { hierarchicalDocumentSymbolSupport: true },
                completion: { completionItem: { snippetSupport: true } },
                publishDiagnostics: { relatedInformation: true, codeDescriptionSupport: true },
            },
        },
    });
    capabilities = result.capabilities;
    await connection.sendNotification(lsp.InitializedNotification.type, {});
});

after(async () => {
    connection.dispose();
    server.kill();
    rmSync(folder, { recursive: true });
});

test("reports what is wrong in an included file, and mends it", async () => {
    assert.equal(capabilities.textDocumentSync && typeof capabilities.textDocumentSync, "object");
    const clean = findings(wells.uri, (found) => found.length === 0);
    await connection.sendNotification(lsp.DidOpenTextDocumentNotification.type, {
        textDocument: { ...wells, languageId: "quor-deck", version: 1, text: wellsText },
    });
    await clean;
    const wrong = findings(wells.uri, (found) => found.length > 0);
    await connection.sendNotification(lsp.DidChangeTextDocumentNotification.type, {
        textDocument: { ...wells, version: 2 },
        contentChanges: [{ range: { start: { line: 4, character: 10 }, end: { line: 4, character: 14 } }, text: "ORATE" }],
    });
    const [finding, ...others] = await wrong;
    assert.deepEqual(others, []);
    assert.ok(finding && Diagnostic.is(finding));
    assert.equal(finding.code, "not-a-choice");
    assert.deepEqual(finding.range, { start: { line: 4, character: 10 }, end: { line: 4, character: 15 } });
    const mended = findings(wells.uri, (found) => found.length === 0);
    await connection.sendNotification(lsp.DidChangeTextDocumentNotification.type, {
        textDocument: { ...wells, version: 3 },
        contentChanges: [{ range: finding.range, text: "ORAT" }],
    });
    await mended;
});

test("describes, completes and explains", async () => {
    const hover = await connection.sendRequest(lsp.HoverRequest.type, {
        textDocument: wells, position: { line: 4, character: 16 } });
    assert.ok(hover && lsp.Hover.is(hover));
    assert.match(JSON.stringify(hover.contents), /ORAT/);
    const completion = await connection.sendRequest(lsp.CompletionRequest.type, {
        textDocument: wells, position: { line: 4, character: 11 } });
    const items = Array.isArray(completion) ? completion : completion?.items ?? [];
    assert.ok(items.some((item) => item.label === "ORAT"), JSON.stringify(items.map((item) => item.label)));
    const signature = await connection.sendRequest(lsp.SignatureHelpRequest.type, {
        textDocument: wells, position: { line: 4, character: 16 } });
    assert.equal(signature?.activeParameter ?? signature?.signatures[0]?.activeParameter, 3);
});

test("finds and renames a well over all files", async () => {
    const position = { line: 4, character: 3 };
    const found = await connection.sendRequest(lsp.DefinitionRequest.type, { textDocument: wells, position });
    const [definition] = Array.isArray(found) ? found : [found];
    assert.ok(Location.is(definition));
    assert.deepEqual(definition, {
        uri: wells.uri, range: { start: { line: 1, character: 2 }, end: { line: 1, character: 4 } } });
    const uses = await connection.sendRequest(lsp.ReferencesRequest.type, {
        textDocument: wells, position, context: { includeDeclaration: true } });
    assert.equal(uses?.length, 2);
    const change = await connection.sendRequest(lsp.RenameRequest.type, {
        textDocument: wells, position, newName: "PROD1" });
    assert.ok(WorkspaceEdit.is(change));
    const edits = change.changes?.[wells.uri]
        ?? change.documentChanges?.flatMap((each) => ("edits" in each ? each.edits : []));
    assert.deepEqual(edits?.map((edit) => "newText" in edit && edit.newText), ["PROD1", "PROD1"]);
});

test("outlines, folds, links and formats", async () => {
    const model = { uri: uriOf("model.data") };
    await connection.sendNotification(lsp.DidOpenTextDocumentNotification.type, {
        textDocument: { ...model, languageId: "quor-deck", version: 1, text: deckText },
    });
    const symbols = await connection.sendRequest(lsp.DocumentSymbolRequest.type, { textDocument: model });
    assert.ok(symbols?.every((symbol) => DocumentSymbol.is(symbol)));
    assert.deepEqual(symbols?.map((symbol) => symbol.name), ["RUNSPEC", "GRID", "SCHEDULE"]);
    const folds = await connection.sendRequest(lsp.FoldingRangeRequest.type, { textDocument: model });
    assert.ok(folds && folds.length >= 3 && folds.every(lsp.FoldingRange.is));
    const links = await connection.sendRequest(lsp.DocumentLinkRequest.type, { textDocument: model });
    assert.deepEqual(links?.map((link) => link.target), [wells.uri]);
    const edits = await connection.sendRequest(lsp.DocumentFormattingRequest.type, {
        textDocument: wells, options: { tabSize: 2, insertSpaces: true } });
    assert.ok(edits === null || edits.every(TextEdit.is));
});

test("refuses what it doesn't know, and ends when it is told", async () => {
    await assert.rejects(connection.sendRequest("no/such"), { code: lsp.ErrorCodes.MethodNotFound });
    await assert.rejects(
        connection.sendRequest("textDocument/hover", { textDocument: wells, position: "here" }), Error);
    const ended = new Promise((resolve) => server.on("exit", resolve));
    await connection.sendRequest(lsp.ShutdownRequest.type);
    await connection.sendNotification(lsp.ExitNotification.type);
    assert.equal(await ended, 0);
});
