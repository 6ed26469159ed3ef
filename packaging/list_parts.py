#!/usr/bin/env python3
"""Writes what the Windows package is made of: the list in CycloneDX, the table in its README, and the licence texts.

list_parts.py VERSION TREE DEPENDENCIES README: reads windows-parts beside it, DEPENDENCIES/versions and
DEPENDENCIES/licences; of a package that is installed, its version and its text come from the system. The time is
SOURCE_DATE_EPOCH.
"""

import datetime
import json
import os
import shutil
import subprocess
import sys
import urllib.parse
import uuid
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


def read_parts(dependencies):
    versions = dict(line.split() for line in (dependencies / "versions").read_text().splitlines())
    for line in (ROOT / "packaging" / "windows-parts").read_text().splitlines():
        if line.startswith("#"):
            continue
        package, file, how, licence, met = (cell.strip() for cell in line.split("|"))
        text = dependencies / "licences" / package
        version, kind = versions.get(package), "source"
        if version is None:
            query = ["dpkg-query", "-W", "-f", "${Version}", package]
            version, kind = subprocess.run(query, check=True, capture_output=True, text=True).stdout, "all"
            text = Path("/usr/share/doc") / package / "copyright"
        yield {"package": package, "version": version, "kind": kind, "file": file, "how": how, "licence": licence,
               "met": met, "text": text}


def component(part):
    purl = f"pkg:deb/debian/{part['package']}@{urllib.parse.quote(part['version'], safe='')}?arch={part['kind']}"
    return {
        "type": "library",
        "bom-ref": purl,
        "name": part["package"],
        "version": part["version"],
        "purl": purl,
        "licenses": [{"expression": part["licence"]}],
        "properties": [{"name": "lacquer:file", "value": part["file"]}, {"name": "lacquer:linkage", "value": part["how"]}],
    }


def main(version, tree, dependencies, readme):
    parts = list(read_parts(dependencies))
    (tree / "licenses").mkdir(exist_ok=True)
    shutil.copy(ROOT / "LICENSE", tree)
    for part in parts:
        shutil.copy(part["text"], tree / "licenses" / f"{part['package']}.txt")

    own = f"pkg:generic/lacquer@{version}"
    time = datetime.datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]), datetime.timezone.utc)
    components = [component(part) for part in parts]
    bill = {
        "bomFormat": "CycloneDX",
        "specVersion": "1.4",
        "serialNumber": f"urn:uuid:{uuid.uuid5(uuid.NAMESPACE_URL, f'{own}#{time}')}",
        "version": 1,
        "metadata": {
            "timestamp": time.strftime("%Y-%m-%dT%H:%M:%SZ"),
            "component": {"type": "library", "bom-ref": own, "name": "lacquer", "version": version, "purl": own,
                          "licenses": [{"license": {"id": "MIT"}}]},
        },
        "components": components,
        "dependencies": [{"ref": own, "dependsOn": [each["bom-ref"] for each in components]}],
    }
    (tree / "parts.cdx.json").write_text(json.dumps(bill, indent=2) + "\n")

    rows = ["| part | version | in | how | licence | how it is met |", "|---|---|---|---|---|---|"]
    rows += [f"| {p['package']} | {p['version']} | {p['file']} | {p['how']} | {p['licence']} | {p['met']} |" for p in parts]
    text = readme.read_text().replace("@VERSION@", version).replace("@PARTS@", "\n".join(rows))
    (tree / "README.md").write_text(text)


if __name__ == "__main__":
    main(sys.argv[1], *map(Path, sys.argv[2:]))
