"""accessible_page.py FOLDER AXE: what axe-core finds on the pages of a folder, in a headless Chromium. AXE
is its script."""

import sys
from pathlib import Path

AXE = Path(sys.argv.pop()).read_text()

from browser import PHONE, PageCase, main  # noqa: E402


class AccessiblePageTest(PageCase):
    def assert_accessible(self):
        self.browser.execute_script(AXE)
        found = self.browser.execute_async_script(
            "const done = arguments[0]; axe.run({ resultTypes: ['violations'] }).then("
            "({ violations }) => done(violations.map(({ id, help, nodes }) => [id, help, "
            "nodes.slice(0, 3).map((node) => node.html + ' ' + node.failureSummary)])))")
        self.assertEqual(found, [])

    def test_page_as_it_opens(self):
        for page in ("example", "nothing", "many", "nodes", "values"):
            with self.subTest(page=page):
                self.open(page)
                self.assert_accessible()

    def test_page_with_an_open_issue(self):
        for page in ("example", "many", "values"):
            with self.subTest(page=page):
                self.open(page, "#issue-1")
                self.assert_accessible()

    def test_page_with_a_filter(self):
        self.open("example", "#q=dimm&band=critical&node=cn031")
        self.assert_accessible()

    def test_page_in_the_dark(self):
        self.set_media(scheme="dark")
        self.open("example", "#issue-1")
        self.assert_accessible()

    def test_page_on_a_phone(self):
        self.set_width(PHONE)
        self.open("example", "#issue-1")
        self.assert_accessible()

    def test_page_without_its_script(self):
        self.open("example")
        self.ask("document.documentElement.classList.remove('scripted')")
        self.ask("document.querySelectorAll('.filter, .list, .map, .help').forEach("
                 "(element) => element.remove())")
        self.assert_accessible()

    def test_axe_would_find_something(self):
        self.open("example")
        self.ask("document.body.insertAdjacentHTML('beforeend', '<button></button>')")
        with self.assertRaises(AssertionError):
            self.assert_accessible()


if __name__ == "__main__":
    main()
