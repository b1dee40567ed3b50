// The pages work without it; it adds the search, the system of units and the theme.
"use strict";
var manualRows = []; // [title, address, text, words], from search-data.js
(function () {
    const root = document.currentScript.dataset.home.replace(/index\.html$/, "");
    const page = document.documentElement;

    function recall(key) {
        try { return localStorage.getItem("quor-" + key); } catch { return null; }
    }
    function keep(key, value) {
        try { localStorage.setItem("quor-" + key, value); } catch { /* a browser that keeps nothing */ }
    }

    const wantsDark = window.matchMedia && matchMedia("(prefers-color-scheme: dark)").matches;
    page.dataset.theme = recall("theme") || (wantsDark ? "dark" : "light");

    function setUpTheme() {
        const button = document.getElementById("theme");
        const show = () => { button.textContent = page.dataset.theme === "dark" ? "Light" : "Dark"; };
        button.addEventListener("click", () => {
            page.dataset.theme = page.dataset.theme === "dark" ? "light" : "dark";
            keep("theme", page.dataset.theme);
            show();
        });
        show();
    }

    function setUpUnits() {
        const choice = document.getElementById("system");
        const show = () => {
            for (const place of document.querySelectorAll("[data-systems]"))
                place.textContent = place.dataset.systems.split("|")[choice.selectedIndex];
        };
        choice.value = recall("units") || "METRIC";
        choice.addEventListener("change", () => { keep("units", choice.value); show(); });
        show();
    }

    let index = null; // of lunr, made when the search is first used
    let loading = null;
    function load() {
        const script = name => new Promise((done, failed) => {
            const element = document.createElement("script");
            element.src = root + name;
            element.onload = done;
            element.onerror = failed;
            document.head.append(element);
        });
        loading = loading || Promise.all([script("lunr.js"), script("search-data.js")]).then(() => {
            index = lunr(function () {
                this.pipeline.remove(lunr.stemmer); // what is misspelt is compared with whole words
                this.searchPipeline.remove(lunr.stemmer);
                this.ref("row");
                this.field("text");
                this.field("words");
                manualRows.forEach(([, , text, words], row) => this.add({ row, text, words }));
            });
        });
        return loading;
    }

    /// Edits that lead from one word to the other, two letters that are swapped being one; at most `most` + 1.
    function distance(a, b, most) {
        if (Math.abs(a.length - b.length) > most) return most + 1;
        let before = [], last = Array.from({ length: b.length + 1 }, (_, i) => i);
        for (let i = 1; i <= a.length; ++i) {
            const row = [i];
            for (let j = 1; j <= b.length; ++j) {
                row[j] = Math.min(last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] === b[j - 1] ? 0 : 1));
                if (i > 1 && j > 1 && a[i - 1] === b[j - 2] && a[i - 2] === b[j - 1])
                    row[j] = Math.min(row[j], before[j - 2] + 1);
            }
            before = last;
            last = row;
        }
        return last[b.length];
    }

    /// How well the title fits: 0 not at all.
    function rankOfTitle(title, wanted) {
        const name = title.toUpperCase();
        if (name === wanted) return 1000;
        if (name.startsWith(wanted)) return 500 - Math.min(name.length, 100);
        if (name.endsWith("*") && name.length > 2 && wanted.startsWith(name.slice(0, -1))) return 350;
        if (wanted.length > 2 && name.includes(wanted)) return 300 - Math.min(name.length, 100);
        const most = wanted.length < 4 ? 0 : wanted.length < 7 ? 1 : 2;
        const far = most ? distance(name, wanted, most) : 1;
        return far <= most ? 200 - 50 * far : 0;
    }

    /// How well the text fits: most of all that it has all words, then that it is short.
    function rankOfWords(tokens, terms, [title, , text]) {
        let sum = 0;
        for (const word of tokens) {
            sum += Math.max(...Object.keys(terms).map(term => {
                const fit = term === word ? 3 : term.startsWith(word) ? 2.5 : Math.max(0, 2.6 - 0.8 * distance(term, word, 2));
                return terms[term].text ? fit : 0.6 * fit; // else among the words of items and choices
            }));
        }
        const isShortened = title.length > 2 && tokens.some(word => word.toUpperCase().startsWith(title));
        return 60 * sum / tokens.length - Math.min(text.length, 200) / 10 + (isShortened ? 60 : 0);
    }

    function find(query) {
        const wanted = query.trim().toUpperCase();
        if (!wanted || !index) return [];
        const ranks = new Map();
        manualRows.forEach(([title], row) => {
            const rank = rankOfTitle(title, wanted);
            if (rank) ranks.set(row, rank);
        });
        const tokens = lunr.tokenizer(query).filter(lunr.stopWordFilter).map(token => token.toString().replace(/[*~^+:]/g, ""));
        const hits = tokens.length ? index.query(asked => tokens.forEach(word => {
            asked.term(word);
            if (word.length > 2) asked.term(word, { wildcard: lunr.Query.wildcard.TRAILING, usePipeline: false });
            if (word.length > 3) asked.term(word, { editDistance: word.length > 6 ? 2 : 1, usePipeline: false });
        })) : [];
        for (const hit of hits) {
            const row = Number(hit.ref);
            ranks.set(row, (ranks.get(row) || 0) + rankOfWords(tokens, hit.matchData.metadata, manualRows[row]));
        }
        return [...ranks].sort((a, b) => b[1] - a[1] || a[0] - b[0]).slice(0, 30).map(([row]) => manualRows[row]);
    }

    function setUpSearch() {
        const field = document.getElementById("search");
        const list = document.getElementById("results");
        let chosen = -1;
        const items = () => [...list.querySelectorAll("[role=option]")];
        const close = () => {
            list.hidden = true;
            field.setAttribute("aria-expanded", "false");
            field.removeAttribute("aria-activedescendant");
        };
        const choose = at => {
            const all = items();
            if (!all.length) return;
            chosen = (at + all.length) % all.length;
            all.forEach((item, i) => item.setAttribute("aria-selected", String(i === chosen)));
            field.setAttribute("aria-activedescendant", all[chosen].id);
            all[chosen].scrollIntoView({ block: "nearest" });
        };
        const show = () => {
            list.replaceChildren(...find(field.value).map(([title, address, text], i) => {
                const item = document.createElement("li");
                const name = document.createElement("b");
                const rest = document.createElement("span");
                name.textContent = title;
                rest.textContent = text;
                item.append(name, rest);
                item.id = "result-" + i;
                item.dataset.address = address;
                item.setAttribute("role", "option");
                item.setAttribute("aria-selected", "false");
                return item;
            }));
            const isAsked = field.value.trim() !== "";
            if (isAsked && index && !list.children.length) {
                const none = document.createElement("li");
                none.textContent = "Nothing found.";
                list.append(none);
            }
            list.hidden = !isAsked || !list.children.length;
            field.setAttribute("aria-expanded", String(!list.hidden));
            chosen = -1;
            if (!list.hidden) choose(0);
        };
        field.addEventListener("focus", () => load().then(show));
        field.addEventListener("input", () => load().then(show));
        field.addEventListener("keydown", event => {
            if (event.key === "ArrowDown") choose(chosen + 1);
            else if (event.key === "ArrowUp") choose(chosen - 1);
            else if (event.key === "Enter" && items()[chosen]) location.href = root + items()[chosen].dataset.address;
            else if (event.key === "Escape") close();
            else return;
            event.preventDefault();
        });
        list.addEventListener("mousedown", event => {
            const item = event.target.closest("[role=option]");
            if (item) location.href = root + item.dataset.address;
        });
        field.addEventListener("blur", close);
        document.addEventListener("keydown", event => {
            const isTyping = /^(INPUT|SELECT|TEXTAREA)$/.test(document.activeElement.tagName);
            if (event.key === "/" && !isTyping && !event.ctrlKey && !event.metaKey) {
                event.preventDefault();
                field.focus();
                field.select();
            }
        });
        window.addEventListener("pageshow", close);
    }

    document.addEventListener("DOMContentLoaded", () => {
        setUpTheme();
        setUpUnits();
        setUpSearch();
    });
}());
