# SPDX-License-Identifier: GPL-3.0-or-later
"""What a case of the campaign found."""

import os


class Result:
    def __init__(self, what):
        self.what = what
        self.tried = 0
        self.lost = []

    def check(self, holds, what):
        self.tried += 1
        if not holds:
            self.lost.append(what)

    def skipped(self, why):
        self.what += f" [SKIPPED: {why}]"
        return self


def content(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except OSError:
        return None


def put(path, data, user=None):
    with open(path, "wb") as file:
        file.write(data)
    if user is not None:
        os.chown(path, user, user)
    return path


def strays(folder, known):
    """Names beside the known ones; the editor's own folders are known."""
    return sorted(set(os.listdir(folder)) - set(known) - {"config", "state", "stderr", "cache", "data", "Documents"})
