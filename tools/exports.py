#!/usr/bin/env python3
"""Derive the export list of libnuvsx7 from the prototypes of include/nuvs.h.

Writes into the output directory:
  exports.map     version script: exactly the declared nuvs functions and NuvExportSlotTable
  slot_table.cpp  NuvExportSlotTable, the addresses of all exports in byte order of their names
  exports.inc     NUV_EXPORT(name, result, "type name, ...") rows for tests and benchmarks
"""
import os
import re
import sys

PROTO = re.compile(r'NUVAPI\s+([^;(]*?)\b(nuvs\w+)\s*\(([^)]*)\)\s*;', re.S)
# Grammar of an export name: prefix, operation in mixed case, then underscore-separated tokens.
NAME = re.compile(r'^nuvs[0-9A-Z][0-9A-Za-z]*(_[0-9A-Za-z]+)*$')


def parse(path):
    text = open(path, encoding='utf-8').read()
    text = re.sub(r'/\*.*?\*/', ' ', text, flags=re.S)
    text = re.sub(r'//[^\n]*', ' ', text)
    found = {}
    for m in PROTO.finditer(text):
        result, name, params = (' '.join(g.split()) for g in m.groups())
        if name in found:
            sys.exit(f'{path}: {name} declared twice')
        if not NAME.match(name):
            sys.exit(f'{path}: {name} does not follow the naming grammar')
        found[name] = (result, params if params != 'void' else '')
    return found


def write_if_changed(path, content):
    if os.path.exists(path) and open(path, encoding='utf-8').read() == content:
        return
    with open(path, 'w', encoding='utf-8') as f:
        f.write(content)


def main():
    header, out = sys.argv[1], sys.argv[2]
    os.makedirs(out, exist_ok=True)
    exports = parse(header)
    names = sorted(exports, key=lambda s: s.encode())

    write_if_changed(os.path.join(out, 'exports.map'),
                     '{\n  global:\n' + ''.join(f'    {n};\n' for n in names) +
                     '    NuvExportSlotTable;\n  local:\n    *;\n};\n')

    write_if_changed(os.path.join(out, 'slot_table.cpp'),
                     '// Generated from nuvs.h; do not edit.\n#include "nuvs.h"\n\n'
                     f'extern "C" NUVAPI const void* const NuvExportSlotTable[{len(names)}] = {{\n' +
                     ''.join(f'    reinterpret_cast<const void*>(&{n}),\n' for n in names) + '};\n')

    rows = []
    for n in names:
        result, params = exports[n]
        rows.append(f'NUV_EXPORT({n}, {result}, "{params}")\n')
    write_if_changed(os.path.join(out, 'exports.inc'),
                     '// Generated from nuvs.h; do not edit.  One row per export, in byte order.\n'
                     f'#define NUV_EXPORT_COUNT {len(names)}\n' + ''.join(rows))


if __name__ == '__main__':
    main()
