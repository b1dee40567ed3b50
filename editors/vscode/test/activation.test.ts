import assert from "node:assert/strict";
import Module from "node:module";
import { afterEach, beforeEach, test } from "node:test";

/** The editor and its client as far as the extension uses them; what it does with them is kept in `seen`. */
const seen: string[] = [];
let settings: Record<string, unknown> = {};
let isMissing = false;
const commands = new Map<string, () => unknown>();
let settingsChanged: (event: { affectsConfiguration(name: string): boolean }) => Promise<void>;

class FakeClient {
    private running = false;
    readonly outputChannel = { show: () => seen.push("output shown") };
    constructor(id: string, _name: string, server: object, client: { initializationOptions: object }) {
        seen.push(`${id}: ${JSON.stringify(server)} ${JSON.stringify(client.initializationOptions)}`);
    }
    async start(): Promise<void> {
        if (isMissing) {
            throw new Error("spawn quor ENOENT");
        }
        this.running = true;
        seen.push("started");
    }
    async stop(): Promise<void> {
        this.running = false;
        seen.push("stopped");
    }
    isRunning(): boolean {
        return this.running;
    }
    async sendNotification(method: string, params: object): Promise<void> {
        seen.push(`${method} ${JSON.stringify(params)}`);
    }
}

const editor = {
    workspace: {
        getConfiguration: () => ({ get: (name: string) => settings[name] }),
        onDidChangeConfiguration: (listener: typeof settingsChanged) => {
            settingsChanged = listener;
            return {};
        },
    },
    window: {
        showErrorMessage: async (text: string, offer: string) => {
            seen.push(`error: ${text} [${offer}]`);
            return offer;
        },
    },
    commands: {
        registerCommand: (name: string, command: () => unknown) => commands.set(name, command),
        executeCommand: async (...words: string[]) => seen.push(words.join(" ")),
    },
};

const stubs: Record<string, unknown> = {
    vscode: editor,
    "vscode-languageclient/node": { LanguageClient: FakeClient, RevealOutputChannelOn: { Never: 4 } },
};
const loader = Module as unknown as { _load(name: string, ...rest: unknown[]): unknown };
const load = loader._load;
loader._load = (name, ...rest) => stubs[name] ?? load(name, ...rest);

import type * as Extension from "../src/extension";
const extension = require("../src/extension") as typeof Extension;
const activate = () => extension.activate({ subscriptions: [] } as never);

beforeEach(() => {
    seen.length = 0;
    settings = { path: "quor", simulator: "", mode: "", root: "", strict: false, variables: {} };
    isMissing = false;
});
afterEach(() => extension.deactivate());

const plain = 'quor: {"command":"quor","args":["language-server"]} {"strict":false,"variables":{}}';

test("starts the server with what is set, and stops it", async () => {
    settings = { ...settings, path: "/opt/quor", simulator: "Carrow", variables: { CASE: "1" } };
    await activate();
    await extension.deactivate();
    assert.deepEqual(seen, [
        'quor: {"command":"/opt/quor","args":["language-server"]} ' +
            '{"simulator":"Carrow","strict":false,"variables":{"CASE":"1"}}',
        "started",
        "stopped",
    ]);
});

test("says what to do where the program is missing", async () => {
    isMissing = true;
    await activate();
    assert.deepEqual(seen, [
        plain,
        "error: The program 'quor' can't be started: spawn quor ENOENT. Install quor, or set its path. [Open the settings]",
        "workbench.action.openSettings quor.path",
    ]);
});

test("sends new settings, and starts another program", async () => {
    await activate();
    seen.length = 0;
    settings.mode = "Thermal";
    await settingsChanged({ affectsConfiguration: (name) => name === "quor" });
    settings.mode = "";
    await settingsChanged({ affectsConfiguration: () => true });
    await settingsChanged({ affectsConfiguration: () => false });
    assert.deepEqual(seen, [
        'workspace/didChangeConfiguration {"settings":{"quor":{"mode":"Thermal","strict":false,"variables":{}}}}',
        "stopped",
        plain,
        "started",
    ]);
});

test("has its commands", async () => {
    await activate();
    seen.length = 0;
    await commands.get("quor.restart")?.();
    commands.get("quor.showOutput")?.();
    assert.deepEqual(seen, ["stopped", plain, "started", "output shown"]);
});
