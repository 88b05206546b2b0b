// Makes what the packages are made of from the rows in contents.json.
//   node make.js files KIND                               the files, as lines of place, source below the root, and whether it
//                                                         is a program or a file; parted by tabs
//   node make.js sources KIND VERSION STAGE TIME FOLDER   in FOLDER the parts that product.wxs includes, the statements that
//                                                         are run afterwards, and the summary. STAGE holds the files.
"use strict";
const crypto = require("crypto");
const fs = require("fs");
const path = require("path");

const contents = JSON.parse(fs.readFileSync(path.join(__dirname, "contents.json"), "utf8"));
const { product, hosts, features } = contents;

// The id that a name has for ever (a version 5 UUID).
function idOf(name) {
    const space = Buffer.from(product.names.replace(/-/g, ""), "hex");
    const bytes = crypto.createHash("sha1").update(space).update(name, "utf8").digest().subarray(0, 16);
    bytes[6] = (bytes[6] & 0x0f) | 0x50;
    bytes[8] = (bytes[8] & 0x3f) | 0x80;
    const hex = bytes.toString("hex").toUpperCase();
    return [hex.slice(0, 8), hex.slice(8, 12), hex.slice(12, 16), hex.slice(16, 20), hex.slice(20)].join("-");
}

const sha256 = (data) => crypto.createHash("sha256").update(data).digest("hex");
const xml = (text) => String(text).replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/"/g, "&quot;");
const placeOf = (feature, file) => path.posix.join(feature.folder.name, file.name);
const idOfFile = (feature, name) => `${feature.id}.${name}`;
const rowsOf = (feature) => [...feature.classes.flatMap((one) => classRows(feature, one)), ...feature.values];

// What a class has in the registry, as its library would register itself.
function classRows(feature, one) {
    const classes = "Software\\Classes\\";
    const ofClass = `${classes}CLSID\\${one.id}`;
    return [
        { key: classes + one.progId, text: one.progId },
        { key: `${classes + one.progId}\\CLSID`, text: one.id },
        { key: ofClass, text: one.progId },
        { key: `${ofClass}\\ProgID`, text: one.progId },
        { key: `${ofClass}\\InprocServer32`, text: `[#${idOfFile(feature, one.file)}]` },
        { key: `${ofClass}\\InprocServer32`, name: "ThreadingModel", text: "Apartment" },
    ];
}

function registryValue(feature, row, index) {
    const name = row.name ? ` Name="${xml(row.name)}"` : "";
    const value = "number" in row ? `Type="integer" Value="${row.number}"` : `Type="string" Value="${xml(row.text)}"`;
    return `<RegistryValue Id="${feature.id}.row${index}" Root="HKCU" Key="${xml(row.key)}"${name} ${value}/>`;
}

// One component for each file. The registry's rows come and go with the first one, which is the library itself.
function component(feature, file, index, kind) {
    const rows = index === 0 ? rowsOf(feature).map((row, i) => registryValue(feature, row, i)) : [];
    const id = idOfFile(feature, file.name);
    return [
        `<Component Id="${id}" Guid="${idOf(`component ${kind} ${id}`)}" Win64="${contents.kinds[kind].wide}">`,
        `<File Id="${id}" Name="${file.name}" Source="${xml(placeOf(feature, file))}" KeyPath="yes"/>`,
        ...rows,
        "</Component>",
    ].join("\n");
}

function folders(kind) {
    return features.map((feature) => {
        const inside = feature.files.map((file, i) => component(feature, file, i, kind)).join("\n");
        const { id, name } = feature.folder;
        return name ? `<Directory Id="${id}" Name="${name}">\n${inside}\n</Directory>` : inside;
    });
}

// A feature that is to be asked for has a level above the installation's own, which is 1.
function featureElement(feature) {
    const parts = feature.files.map((file) => `<ComponentRef Id="${idOfFile(feature, file.name)}"/>`);
    const absent = feature.asked ? 'Level="1000"' : 'Level="1" Absent="disallow"';
    return `<Feature Id="${feature.id}" Title="${feature.title}" Description="${feature.about}" ${absent}>\n${parts.join("\n")}\n</Feature>`;
}

// The newest host that is found counts, in the registry's half for 64-bit programs before the one for 32-bit programs.
// Without any, the installation goes on.
function hostCheck(kind, version) {
    const { words, other } = contents.kinds[kind];
    const places = hosts.flatMap((host) => [{ host, wide: "yes" }, { host, wide: "no" }]);
    const searches = places.map(
        ({ host, wide }, i) =>
            `<Property Id="HOST${i}"><RegistrySearch Id="Host${i}" Root="HKLM" Key="SOFTWARE\\Microsoft\\Office\\${host}\\Outlook" ` +
            `Name="Bitness" Type="raw" Win64="${wide}"/></Property>`,
    );
    const wrong = places.reduceRight(
        (rest, _, i) => `HOST${i}="${other}"` + (rest ? ` OR NOT HOST${i} AND (${rest})` : ""), "");
    const message =
        `The Outlook on this machine is the ${contents.kinds[other].words} one and this package is for the ${words} one: ` +
        `take TarnwellNote-${version}-${other}.msi.`;
    return [...searches, `<Condition Message="${message}">${xml(`Installed OR NOT (${wrong})`)}</Condition>`];
}

// What wixl has no element for: an equal version is replaced, too, and the features that were there are there again; a feature
// that is always there can't be left out; folders that have become empty go; and what programs wrote below a key of ours goes
// with the key.
function statements(version) {
    const migrate = 1, inclusive = 512, always = 16;
    const lines = [
        "DELETE FROM `Upgrade` WHERE `ActionProperty`='WIX_UPGRADE_DETECTED'",
        "INSERT INTO `Upgrade` (`UpgradeCode`,`VersionMax`,`Attributes`,`ActionProperty`) " +
            `VALUES ('{${product.upgradeCode}}','${version}',${migrate + inclusive},'WIX_UPGRADE_DETECTED')`,
        ...features.filter((one) => !one.asked).map((one) => `UPDATE \`Feature\` SET \`Attributes\`=${always} WHERE \`Feature\`='${one.id}'`),
    ];
    const remove = (feature, folder) => {
        const first = idOfFile(feature, feature.files[0].name);
        lines.push(
            "INSERT INTO `RemoveFile` (`FileKey`,`Component_`,`FileName`,`DirProperty`,`InstallMode`) " +
                `VALUES ('${feature.id}.${folder}','${first}','','${folder}',2)`,
        );
    };
    for (const feature of [...features].reverse()) {
        remove(feature, feature.folder.id);
        feature.removed.forEach((key, i) =>
            lines.push(
                "INSERT INTO `Registry` (`Registry`,`Root`,`Key`,`Name`,`Component_`) " +
                    `VALUES ('${feature.id}.gone${i}',1,'${key}','-','${idOfFile(feature, feature.files[0].name)}')`,
            ),
        );
    }
    remove(features[0], "Programs");
    return lines;
}

function summary(kind, packageCode, time) {
    const made = new Date(time * 1000).toISOString().slice(0, 19).replace(/-/g, "/").replace("T", " ");
    const rows = [[1, 1252], [2, "Installation Database"], [3, product.name], [4, product.maker], [5, "Installer"],
        [6, `Installs the ${product.name} for one user.`], [7, contents.kinds[kind].template], [9, `{${packageCode}}`], [12, made], [13, made],
        [14, 500], [15, 10], [18, product.maker], [19, 2]];
    return ["PropertyId\tValue", "i2\tl255", "_SummaryInformation\tPropertyId", ...rows.map((row) => row.join("\t"))];
}

function sources(kind, version, stage, time, folder) {
    const recipe = ["contents.json", "make.js", "product.wxs"].map((name) => fs.readFileSync(path.join(__dirname, name)));
    const files = features.flatMap((feature) => feature.files.map((file) => fs.readFileSync(path.join(stage, placeOf(feature, file)))));
    const whole = [kind, version, String(time), ...[...recipe, ...files].map(sha256)].join(" ");
    const names = { Name: product.name, Maker: product.maker, UpgradeCode: product.upgradeCode, Version: version, ProductCode: idOf(`product ${whole}`) };
    const put = (name, lines) => fs.writeFileSync(path.join(folder, name), lines.join("\n") + "\n");
    const part = (name, lines) =>
        put(name, ['<?xml version="1.0" encoding="utf-8"?>', '<Include xmlns="http://schemas.microsoft.com/wix/2006/wi">', ...lines, "</Include>"]);
    part("names.wxi", Object.entries(names).map(([name, value]) => `<?define ${name}="${value}"?>`));
    part("host.wxi", hostCheck(kind, version));
    part("folders.wxi", folders(kind));
    part("features.wxi", features.map(featureElement));
    put("statements.sql", statements(version));
    fs.writeFileSync(path.join(folder, "_SummaryInformation.idt"), summary(kind, idOf(`package ${whole}`), time).join("\r\n") + "\r\n");
}

function files(kind) {
    for (const feature of features) {
        for (const file of feature.files) {
            const source = file.source || `build/${kind}/bin/${file.name}`;
            console.log([placeOf(feature, file), source, file.source ? "file" : "program"].join("\t"));
        }
    }
}

const [command, ...rest] = process.argv.slice(2);
if (command === "files") files(rest[0]);
else if (command === "sources") sources(rest[0], rest[1], rest[2], Number(rest[3]), rest[4]);
else throw new Error(`no such command: ${command}`);
