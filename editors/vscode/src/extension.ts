import * as vscode from "vscode";
import { LanguageClient } from "vscode-languageclient/node";

import { clientOptions, serverCommand, serverSettings, Setting } from "./options";

let client: LanguageClient | undefined;

const setting: Setting = (name) => vscode.workspace.getConfiguration("quor").get(name);

async function start(): Promise<void> {
    client = new LanguageClient("quor", "Reservoir decks", serverCommand(setting), clientOptions(setting));
    try {
        await client.start();
    } catch (error) {
        const reason = error instanceof Error ? error.message : String(error);
        const choice = await vscode.window.showErrorMessage(
            `The program '${serverCommand(setting).command}' can't be started: ${reason}. ` +
                "Install quor, or set its path.",
            "Open the settings",
        );
        if (choice) {
            await vscode.commands.executeCommand("workbench.action.openSettings", "quor.path");
        }
    }
}

async function stop(): Promise<void> {
    const running = client;
    client = undefined;
    if (running?.isRunning()) {
        await running.stop();
    }
}

async function restart(): Promise<void> {
    await stop();
    await start();
}

async function settingsChanged(event: vscode.ConfigurationChangeEvent): Promise<void> {
    if (event.affectsConfiguration("quor.path")) {
        await restart();
    } else if (event.affectsConfiguration("quor") && client?.isRunning()) {
        await client.sendNotification("workspace/didChangeConfiguration", {
            settings: { quor: serverSettings(setting) },
        });
    }
}

export async function activate(context: vscode.ExtensionContext): Promise<void> {
    context.subscriptions.push(
        vscode.commands.registerCommand("quor.restart", restart),
        vscode.commands.registerCommand("quor.showOutput", () => client?.outputChannel.show()),
        vscode.workspace.onDidChangeConfiguration(settingsChanged),
    );
    await start();
}

export function deactivate(): Promise<void> {
    return stop();
}
