import { LanguageClientOptions, RevealOutputChannelOn } from "vscode-languageclient/node";

/** What the extension asks the editor for: a value of its settings, by the name without "quor.". */
export type Setting = <T>(name: string) => T | undefined;

/** The settings as the server takes them, without those that are left empty. */
export function serverSettings(setting: Setting): Record<string, unknown> {
    const settings: Record<string, unknown> = {};
    for (const name of ["simulator", "mode", "root", "strict", "variables"]) {
        const value = setting<unknown>(name);
        if (value !== undefined && value !== "") {
            settings[name] = value;
        }
    }
    return settings;
}

/** How the server is started: once, with standard input and output. */
export function serverCommand(setting: Setting): { command: string; args: string[] } {
    return { command: setting<string>("path") || "quor", args: ["language-server"] };
}

/** Decks on disk and decks that were never saved; nothing of other file systems, whose files the server can't read. */
export function clientOptions(setting: Setting): LanguageClientOptions {
    return {
        documentSelector: [
            { scheme: "file", language: "quor-deck" },
            { scheme: "untitled", language: "quor-deck" },
        ],
        initializationOptions: serverSettings(setting),
        revealOutputChannelOn: RevealOutputChannelOn.Never,
    };
}
