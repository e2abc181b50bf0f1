"""node_exporter.py FILES: fails when a node_exporter loses a series of one of the files, or logs
anything. Each file is alone in the folder that the exporter reads."""

import os
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import urllib.error
import urllib.request
from pathlib import Path

import samples

# Seconds, on a machine that has much else to do.
START_LIMIT = 60


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def start(folder, port, log):
    """Starts an exporter of text files alone. It complains about being root, so it is not."""
    return subprocess.Popen(
        ["prometheus-node-exporter", "--collector.disable-defaults", "--collector.textfile",
         f"--collector.textfile.directory={folder}", f"--web.listen-address=127.0.0.1:{port}",
         "--log.level=warn"],
        stdout=log, stderr=log, user="nobody" if os.geteuid() == 0 else None)


def scrape(exporter, port):
    end = time.monotonic() + START_LIMIT
    while True:
        try:
            with urllib.request.urlopen(f"http://127.0.0.1:{port}/metrics", timeout=60) as answer:
                return answer.read().decode()
        except urllib.error.URLError:
            if exporter.poll() is not None or time.monotonic() > end:
                raise
            time.sleep(0.05)


def check(path, exporter, folder, port):
    shutil.copy(path, folder / "report.prom")
    os.chmod(folder / "report.prom", 0o644)
    # The exporter has metrics of its own, of other forms.
    text = "\n".join(line for line in scrape(exporter, port).split("\n")
                     if line.startswith(("vond_", "node_textfile_scrape_error")))
    found = samples.read(text)
    assert not samples.twice(found), path
    found = dict(found)
    assert found.pop(("node_textfile_scrape_error", ())) == 0, path
    assert found == dict(samples.read(Path(path).read_bytes().decode())), path


def main():
    folder = Path(tempfile.mkdtemp())
    folder.chmod(0o755)
    port = free_port()
    with tempfile.TemporaryFile("w+") as log:
        exporter = start(folder, port, log)
        try:
            for path in sys.argv[1:]:
                check(path, exporter, folder, port)
        finally:
            exporter.terminate()
            exporter.wait()
            shutil.rmtree(folder)
            log.seek(0)
            logged = log.read()
            if logged:
                sys.exit("node_exporter says:\n" + logged)


if __name__ == "__main__":
    main()
