// Makes of the settings in data/settings.json what people read of them.
//   node make.js guide FILE              prints a guide with its table of settings made anew
//   node make.js policy VERSION FOLDER   in FOLDER the group policy template and its texts
"use strict";
const fs = require("fs");
const path = require("path");

const { key: usualKey, settings } = JSON.parse(fs.readFileSync(path.join(__dirname, "../../data/settings.json"), "utf8"));

const begin = "<!-- made from data/settings.json -->\n";
const end = "<!-- end of what is made -->\n";

// What a value holds: of a switch, what it is compared with, and what anything else means, also no value at all.
const holds = { text: "text", off: "`1`: on, else off", on: "`0`: off, else on" };
const kindOf = (setting) => (setting.kind === "switch" ? (setting.default === "1" ? "on" : "off") : "text");

const keyOf = (setting) => setting.key || usualKey;

// What stands under a key of its own is what the add-in reads once.
function tables() {
    const table = (key) => {
        const rows = settings.filter((setting) => keyOf(setting) === key)
            .map((setting) => `| \`${setting.name}\` | ${holds[kindOf(setting)]} | ${setting.about} |`);
        return ["", "| Value | Holds | Meaning |", "| --- | --- | --- |", ...rows, "", ""].join("\n");
    };
    const others = [...new Set(settings.map(keyOf))].filter((key) => key !== usualKey);
    return table(usualKey) +
        others.map((key) => `Under \`HKEY_CURRENT_USER\\${key}\`, read when the add-in is loaded:\n${table(key)}`).join("");
}

function guide(file) {
    const text = fs.readFileSync(file, "utf8");
    const from = text.indexOf(begin), to = text.indexOf(end);
    if (from < 0 || to < from) throw new Error(`${file} has no place for the table of settings`);
    return text.slice(0, from + begin.length) + tables() + text.slice(to);
}

const xml = (text) => text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/"/g, "&quot;");
const plain = (text) => text.replace(/\*([^*]+)\*|`([^`]+)`/g, '"$1$2"');

// A switch writes 1 or 0, a text what the administrator enters; without a policy, each user's own value holds.
function policy(setting) {
    const { name } = setting, key = keyOf(setting);
    const head =
        `<policy name="${name}" class="User" displayName="$(string.${name})" explainText="$(string.${name}_Help)" key="${xml(key)}"`;
    const place = '<parentCategory ref="TarnwellNote"/>\n<supportedOn ref="SUPPORTED_TarnwellNote"/>';
    if (kindOf(setting) === "text") {
        return `${head} presentation="$(presentation.${name})">\n${place}\n` +
            `<elements><text id="${name}" valueName="${name}" required="true"/></elements>\n</policy>`;
    }
    return `${head} valueName="${name}">\n${place}\n<enabledValue><string>1</string></enabledValue>\n` +
        "<disabledValue><string>0</string></disabledValue>\n</policy>";
}

function template(version) {
    return `<?xml version="1.0" encoding="utf-8"?>
<!-- Tarnwell Create Note Add-in ${version} -->
<policyDefinitions xmlns="http://schemas.microsoft.com/GroupPolicy/2006/07/PolicyDefinitions" revision="1.0" schemaVersion="1.0">
<policyNamespaces><target prefix="tarnwell" namespace="Tarnwell.Policies.Note"/></policyNamespaces>
<resources minRequiredRevision="1.0"/>
<supportedOn><definitions><definition name="SUPPORTED_TarnwellNote" displayName="$(string.SUPPORTED_TarnwellNote)"/></definitions></supportedOn>
<categories><category name="TarnwellNote" displayName="$(string.TarnwellNote)"/></categories>
<policies>
${settings.map(policy).join("\n")}
</policies>
</policyDefinitions>
`;
}

function texts(version) {
    const string = (id, text) => `<string id="${id}">${xml(text)}</string>`;
    const otherwise = (setting) => (kindOf(setting) === "text" ? "" : ` Without a value it is ${kindOf(setting)}.`);
    const strings = settings.flatMap((setting) => [
        string(setting.name, setting.title),
        string(`${setting.name}_Help`, plain(setting.about) + otherwise(setting)),
    ]);
    const presentations = settings
        .filter((setting) => kindOf(setting) === "text")
        .map(({ name, title }) => `<presentation id="${name}"><textBox refId="${name}"><label>${xml(title)}:</label></textBox></presentation>`);
    return `<?xml version="1.0" encoding="utf-8"?>
<policyDefinitionResources xmlns="http://schemas.microsoft.com/GroupPolicy/2006/07/PolicyDefinitions" revision="1.0" schemaVersion="1.0">
<displayName>Tarnwell Create Note Add-in</displayName>
<description>Settings of the Tarnwell Create Note Add-in ${version}</description>
<resources>
<stringTable>
${[string("TarnwellNote", "Tarnwell Create Note Add-in"), string("SUPPORTED_TarnwellNote", "Every version of the add-in"), ...strings].join("\n")}
</stringTable>
<presentationTable>
${presentations.join("\n")}
</presentationTable>
</resources>
</policyDefinitionResources>
`;
}

const [command, ...rest] = process.argv.slice(2);
if (command === "guide") {
    process.stdout.write(guide(rest[0]));
} else if (command === "policy") {
    const [version, folder] = rest;
    fs.mkdirSync(path.join(folder, "en-US"), { recursive: true });
    fs.writeFileSync(path.join(folder, "TarnwellNote.admx"), template(version));
    fs.writeFileSync(path.join(folder, "en-US", "TarnwellNote.adml"), texts(version));
} else {
    throw new Error(`no such command: ${command}`);
}
