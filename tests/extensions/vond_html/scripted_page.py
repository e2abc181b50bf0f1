"""scripted_page.py FOLDER: opens the pages of a folder in a headless Chromium and uses them as a reader
would. NAME.json beside NAME.html is the same report for programs."""

import json
import re
import subprocess
import time

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import Select

from browser import FOLDER, PAGES, PHONE, PageCase, Server, main


def report_of(page):
    return json.loads((FOLDER / f"{page}.json").read_text())


class ScriptedPageCase(PageCase):
    def setUp(self):
        super().setUp()
        self.issues = report_of("example")["issues"]

    def search(self, words):
        self.find("#search").clear()
        self.find("#search").send_keys(words)

    def choose(self, text):
        """Presses the box in front of a text."""
        for label in self.find_all(".filter label"):
            if label.text.startswith(text + " ("):
                label.click()
                return
        self.fail(f"no box for {text}")

    def shown(self):
        """Returns the numbers of the issues in the list, from its first row to its last."""
        numbers, last = [], None
        self.ask("window.scrollTo(0, document.querySelector('.list').offsetTop - 100)")
        self.settle()
        while last != (last := self.ask("window.scrollY")):
            numbers += [int(title.replace(",", "")) for title in self.ask(
                "Array.from(document.querySelectorAll('.title'), one => one.textContent.split('.')[0])")]
            self.ask("window.scrollBy(0, window.innerHeight)")
            self.settle()
        return sorted(set(numbers))

    def settle(self):
        """Waits until what scrolling and resizing brought about is drawn."""
        self.browser.execute_async_script(
            "requestAnimationFrame(() => requestAnimationFrame(arguments[0]))")

    def numbers(self, condition):
        return [issue["number"] for issue in self.issues if condition(issue)]

    def press(self, *keys):
        ActionChains(self.browser).send_keys(*keys).perform()

    def pasted(self):
        """Returns what is on the clipboard, as a reader would get it."""
        self.ask("document.body.insertAdjacentHTML('beforeend', '<textarea id=pasted></textarea>')")
        area = self.find("#pasted")
        area.send_keys(Keys.CONTROL, "v")
        text = area.get_attribute("value")
        self.ask("document.getElementById('pasted').remove()")
        return text

    def copy(self, button):
        self.ask("arguments[0].scrollIntoView({ block: 'center' })", button)
        button.click()
        self.wait_for(lambda: button.text.startswith("copied"))
        return self.pasted()

    def button(self, selector, text):
        """Returns the button or link that shows a text. Behind it others hear what it is about."""
        return next(one for one in self.find_all(selector) if text in (
            one.text, self.ask("arguments[0].firstElementChild?.textContent", one)))


class SearchTest(ScriptedPageCase):
    def test_pages_open_from_disk_without_a_message(self):
        for page in PAGES:
            with self.subTest(page=page.name):
                self.open(page.stem)
                self.assertEqual(self.find("html").get_attribute("class"), "scripted")
                self.assertIn("End of report.", self.find("footer").text)
                self.assert_no_message()

    def test_all_issues_are_there_worst_first(self):
        self.open("example")
        self.assertEqual(self.shown(), [issue["number"] for issue in self.issues])
        self.assertIn(f"{len(self.issues)} issues", self.find(".result").text)

    def test_a_page_without_issues_says_so(self):
        self.open("nothing")
        self.assertIn("No issues detected.", self.find("#issues").text)
        self.assertEqual(self.find_all(".filter"), [])

    def test_a_word_is_found_in_ids_and_messages_in_any_case(self):
        self.open("example")
        self.search("DIMM")
        wanted = self.numbers(lambda issue: "dimm" in (issue["id"] + issue["message"]).lower())
        self.assertGreater(len(wanted), 1)
        self.assertEqual(self.shown(), wanted)
        self.assertIn(f"{len(wanted)} of {len(self.issues)} issues", self.find(".result").text)

    def test_all_words_have_to_be_found(self):
        self.open("example")
        self.search("dimm cn031")
        self.assertEqual(self.shown(), self.numbers(
            lambda issue: "dimm" in (issue["id"] + issue["message"]).lower()
            and "cn031" in issue["nodes"]))

    def test_a_node_finds_every_issue_whose_set_has_it(self):
        self.open("example")
        for node in ("cn031", "gpu04", "login1"):
            self.search(node)
            self.assertEqual(self.shown(), self.numbers(
                lambda issue, node=node: node in issue["nodes"] or node in issue["message"]))

    def test_a_part_of_a_name_finds_all_nodes_that_have_it(self):
        self.open("example")
        self.search("gpu0")
        self.assertEqual(self.shown(), self.numbers(
            lambda issue: any("gpu0" in node for node in issue["nodes"])
            or "gpu0" in issue["id"] + issue["message"]))

    def test_a_node_set_finds_the_issues_of_all_its_nodes(self):
        self.open("example")
        self.search("cn[030-032]")
        self.assertEqual(self.shown(), self.numbers(
            lambda issue: {"cn030", "cn031", "cn032"} & set(issue["nodes"])))

    def test_node_sets_are_read_as_the_report_writes_them(self):
        self.open("names")
        for words, found in (("r[1-2]c[08-09]", [2]), ("r2c[8-9]", []), ("n[1-3]", [3]),
                             ("n[001-003]", []), ("[1-2]cn,n10", [1, 3]), ("n[02", []),
                             ("n[9-99999999999999999999]", [3])):
            with self.subTest(words=words):
                self.search(words)
                self.assertEqual(self.shown(), found)

    def test_node_sets_of_more_nodes_than_there_are_find_all_of_theirs(self):
        self.open("nodes")
        self.search("x[1-200000],cn[9999-99999999999]")
        self.assertEqual(self.shown(), [1])

    def test_what_nobody_wrote_finds_nothing(self):
        self.open("example")
        self.search("zzz")
        self.assertEqual(self.shown(), [])
        self.assertIn("0 of ", self.find(".result").text)

    def test_boxes_leave_bands_types_and_changes(self):
        self.open("example")
        self.choose("CRITICAL")
        self.choose("observation")
        wanted = self.numbers(lambda issue: issue["band"] == "critical"
                              and issue["type"] == "observation")
        self.assertEqual(self.shown(), wanted)
        self.choose("WARNING")
        self.assertEqual(self.shown(), self.numbers(
            lambda issue: issue["band"] in ("critical", "warning")
            and issue["type"] == "observation"))
        self.button(".filter button", "show all").click()
        self.assertEqual(self.shown(), [issue["number"] for issue in self.issues])

    def test_changes_can_be_chosen_where_there_are_several(self):
        self.issues = report_of("changed")["issues"]
        self.open("changed")
        self.choose("new")
        wanted = self.numbers(lambda issue: issue["change"] == "new")
        self.assertLess(0, len(wanted))
        self.assertLess(len(wanted), len(self.issues))
        self.assertEqual(self.shown(), wanted)

    def test_a_definition_can_be_chosen(self):
        self.open("example")
        Select(self.find("#definition")).select_by_visible_text("compute/hardware/memory")
        self.assertEqual(self.shown(), self.numbers(
            lambda issue: "compute/hardware/memory" in issue["definitions"]))

    def test_counts_of_definitions_lead_to_all_their_issues(self):
        self.open("example")
        link = self.find("a[data-filter='band=warning&definition=compute%2Fhardware%2Fmemory']")
        link.click()
        wanted = self.numbers(lambda issue: "compute/hardware/memory" in issue["definitions"]
                              and issue["band"] == "warning")
        self.assertEqual(self.shown(), wanted)
        self.assertIn(f"{len(wanted)} ", link.text)

    def test_counts_of_issues_that_are_not_in_the_page_itself_are_links_too(self):
        self.open("many")
        link = next(one for one in self.find_all("a") if "band=informational" in
                    (one.get_attribute("href") or "") and "definition" in one.get_attribute("href"))
        self.ask("arguments[0].closest('details').open = true", link)
        count = int(link.text.split()[0])
        link.click()
        self.wait_for(lambda: self.find(".result").text.startswith(f"{count} of 3,000 issues"))

    def test_counts_of_definitions_that_do_not_fold_out_are_links(self):
        self.open("many")
        link = self.find(".leaf a.own")
        count = int(link.text.split()[-1])
        link.click()
        self.wait_for(lambda: self.find(".result").text.startswith(f"{count} of 3,000 issues"))

    def test_what_has_no_room_among_the_causes_is_a_link(self):
        self.open("many")
        link = next(one for one in self.find_all("#band-critical a") if one.text.startswith("and "))
        link.click()
        self.wait_for(lambda: self.find(".result").text.startswith("1,000 of 3,000 issues"))


    def test_what_has_no_room_among_what_nothing_explains_is_without_what_something_does(self):
        self.issues = report_of("explained")["issues"]
        self.open("explained")
        wanted = self.numbers(lambda issue: issue["type"] == "observation" and not issue["diagnoses"])
        self.assertEqual(len(wanted), 28)
        link = next(one for one in self.find_all("#band-critical a") if one.text == "and 18 more")
        link.click()
        self.wait_for(lambda: self.find(".result").text.startswith("28 of 31 issues"))
        self.assertEqual(self.shown(), wanted)
        self.button(".chosen button", "remove").click()
        self.assertIn("30 of 31 issues", self.find(".result").text)


class AddressTest(ScriptedPageCase):
    def test_the_address_holds_the_state(self):
        self.open("example")
        self.search("dimm")
        self.choose("WARNING")
        wanted = self.shown()
        self.wait_for(lambda: "band=warning" in self.browser.current_url)
        fragment = self.browser.current_url.partition("#")[2]
        self.open("example", "#" + fragment)
        self.assertEqual(self.find("#search").get_attribute("value"), "dimm")
        self.assertEqual(self.shown(), wanted)

    def test_a_link_to_an_issue_can_be_sent(self):
        self.open("many", "#issue-2500")
        row = self.browser.switch_to.active_element
        self.assertTrue(row.text.startswith("2,500. "), row.text)
        self.assertEqual(row.get_attribute("aria-expanded"), "true")
        self.assertLess(abs(self.ask("arguments[0].getBoundingClientRect().top", row)), 200)

    def test_an_issue_that_there_is_not_opens_nothing(self):
        self.open("example", "#issue-9999")
        self.assertEqual(self.find_all(".detail"), [])
        self.assert_no_message()

    def test_a_nonsense_of_an_address_breaks_nothing(self):
        for fragment in ("#%", "#=&=%zz", "#issue=x&related=x&band=nothing", "#related=77777&q=%5B",
                         "#q=cn[1-&node=%00"):
            with self.subTest(fragment=fragment):
                self.open("example", fragment)
                self.assertEqual(self.find("html").get_attribute("class"), "scripted")
                self.assert_no_message()

    def test_links_of_the_page_itself_open_issues(self):
        self.open("example")
        self.find("#band-critical li a").click()
        self.wait_for(lambda: self.find_all(".detail"))
        self.assertTrue(self.browser.switch_to.active_element.text.startswith("1. "))

    def test_a_link_that_is_pressed_again_leads_there_again(self):
        self.open("example")
        link = self.find("#band-critical li a")
        for leave in ("window.scrollTo(0, 0)", "document.querySelector('[aria-expanded=true]').click()"):
            link.click()
            self.wait_for(lambda: self.find_all(".detail"))
            self.ask(leave)
            link.click()
            self.wait_for(lambda: self.find_all(".detail"))
            row = self.browser.switch_to.active_element
            self.assertTrue(row.text.startswith("1. "), leave)
            self.assertLess(abs(self.ask("arguments[0].getBoundingClientRect().top", row)), 200)

    def test_back_leads_to_all_issues_where_nothing_was_left_out_before(self):
        self.open("example", "#q=dimm")
        self.button(".filter button", "show all").click()
        self.wait_for(lambda: self.browser.current_url.endswith("#issues"))
        self.find("#band-critical li a").click()
        self.wait_for(lambda: self.find_all(".detail"))
        self.browser.back()
        self.wait_for(lambda: not self.find_all(".detail"))
        self.assertTrue(self.browser.current_url.endswith("#issues"))

    def test_back_leads_to_what_was_typed_a_moment_before_a_link_was_pressed(self):
        self.open("example")
        self.find("#search").send_keys("dimm")
        self.ask("document.querySelector('#band-critical li a').click()")
        self.wait_for(lambda: self.find_all(".detail"))
        self.browser.back()
        self.wait_for(lambda: self.find("#search").get_attribute("value") == "dimm")

    def test_other_places_of_the_page_can_still_be_reached(self):
        self.open("example", "#definitions")
        self.assertLess(abs(self.ask("document.getElementById('definitions')"
                                     ".getBoundingClientRect().top")), 200)

    def test_related_issues_lead_to_each_other(self):
        diagnosis = next(issue for issue in self.issues if len(issue["based_on"]) > 1)
        self.open("example", f"#issue-{diagnosis['number']}")
        self.button(".detail a", "(show them alone)").click()
        self.assertEqual(self.shown(), diagnosis["based_on"])
        self.browser.back()
        observation = self.issues[diagnosis["based_on"][0] - 1]
        self.wait_for(lambda: self.find_all(".detail"))
        self.button(".detail a", observation["id"]).click()
        self.wait_for(lambda: self.browser.switch_to.active_element.text.startswith(
            f"{observation['number']}. "))
        self.assertIn("Explained by", self.find(".detail").text)


class ListTest(ScriptedPageCase):
    def test_a_long_list_has_few_rows_in_the_document(self):
        self.open("many")
        self.assertLess(len(self.find_all(".row")), 60)
        self.ask("document.querySelector('.list').scrollIntoView({ block: 'end' })")
        self.settle()
        titles = [row.text for row in self.find_all(".title")]
        self.assertTrue(titles[-1].startswith("3,000. "), titles[-1])
        self.assertLess(len(titles), 60)

    def test_rows_tell_their_place_in_the_list(self):
        self.open("many", "#issue-2500")
        for row in self.find_all(".row"):
            number = int(re.match(r"[\d,]+", row.text)[0].replace(",", ""))
            self.assertEqual(row.get_attribute("role"), "listitem")
            self.assertEqual(row.get_attribute("aria-posinset"), str(number))
            self.assertEqual(row.get_attribute("aria-setsize"), "3000")
        numbers = [int(row.get_attribute("aria-posinset")) for row in self.find_all(".row")]
        self.assertEqual(numbers, sorted(numbers))

    def test_keys_alone_go_through_the_list(self):
        self.open("many")
        self.find("#search").send_keys("i0")
        for _ in range(40):
            if "line" in self.browser.switch_to.active_element.get_attribute("class"):
                break
            self.press(Keys.TAB)
        at = lambda: self.browser.switch_to.active_element.text.split(".")[0]
        self.assertEqual(at(), "1")
        self.press(Keys.DOWN, Keys.DOWN)
        self.assertEqual(at(), "3")
        self.press(Keys.END)
        self.assertEqual(at(), "3,000")
        self.press(Keys.PAGE_UP)
        self.assertLess(int(at().replace(",", "")), 3000)
        self.press(Keys.HOME, Keys.ENTER)
        self.assertEqual(at(), "1")
        self.assertIn("It is broken.", self.find(".detail").text)
        self.press(Keys.ESCAPE)
        self.assertEqual(self.find_all(".detail"), [])
        self.assertEqual(at(), "1")

    def test_keys_stay_in_the_form_when_the_button_that_was_pressed_goes(self):
        for selector, fragment in ((".chosen button", "#node=cn031"), (".result button:last-child", "#q=dimm")):
            with self.subTest(button=selector):
                self.open("example", fragment)
                self.find(selector).send_keys(Keys.ENTER)
                self.settle()
                self.press(Keys.TAB)
                self.assertEqual(self.browser.switch_to.active_element.get_attribute("id"), "search")

    def test_what_is_read_stays_where_it_is_when_the_window_gets_another_width(self):
        for number in (1, 2, 20):
            self.open("example", f"#issue-{number}")
            self.settle()
            row = self.find("[aria-expanded=true]")
            before = self.ask("arguments[0].getBoundingClientRect().top", row)
            for width in (320, 700):
                with self.subTest(number=number, width=width):
                    self.set_width(width)
                    self.settle()
                    self.assertAlmostEqual(self.ask(
                        "document.querySelector('[aria-expanded=true]').getBoundingClientRect().top"),
                        before, delta=2)
            self.browser.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})

    def test_what_is_pressed_stays_where_it_is_when_another_row_closes(self):
        self.open("example", "#issue-2")
        row = next(one for one in self.find_all(".line") if one.text.startswith("5. "))
        self.ask("arguments[0].scrollIntoView({ block: 'center' })", row)
        before = self.ask("arguments[0].getBoundingClientRect().top", row)
        row.click()
        self.settle()
        row = self.browser.switch_to.active_element
        self.assertTrue(row.text.startswith("5. "))
        self.assertAlmostEqual(self.ask("arguments[0].getBoundingClientRect().top", row), before,
                               delta=2)

    def test_an_open_issue_tells_all_that_is_known_of_it(self):
        for issue in self.issues:
            self.open("example", f"#issue-{issue['number']}")
            text = self.find(".detail").text
            for part in (issue["message"], issue["nodes_folded"], issue["category"],
                         *issue["definitions"]):
                self.assertIn(" ".join((part or "").split()), " ".join(text.split()))

    def test_rows_below_an_open_one_begin_behind_it(self):
        self.open("example", "#issue-3")
        self.settle()
        bottom = self.ask("document.querySelector('.detail').getBoundingClientRect().bottom")
        following = next(one for one in self.find_all(".line") if one.text.startswith("4. "))
        self.assertGreaterEqual(self.ask("arguments[0].getBoundingClientRect().top", following), bottom)


class CopyTest(ScriptedPageCase):
    def setUp(self):
        super().setUp()
        self.issue = max(self.issues, key=lambda issue: len(issue["nodes"]))

    def open_issue(self):
        self.open("example", f"#issue-{self.issue['number']}")

    def test_nodes_of_an_issue_are_copied_as_a_set_and_one_per_line(self):
        self.open_issue()
        self.assertEqual(self.copy(self.button(".detail button", "copy")),
                         self.issue["nodes_folded"])
        lines = self.copy(self.button(".detail button", "copy one per line"))
        self.assertEqual(sorted(lines.split()), self.issue["nodes"])

    def test_all_nodes_of_what_is_filtered_are_copied_as_clush_reads_them(self):
        self.open("example")
        self.choose("CRITICAL")
        wanted = {node for issue in self.issues if issue["band"] == "critical"
                  for node in issue["nodes"]}
        folded = self.copy(self.button(".result button", "copy all their nodes"))
        self.assertEqual(expanded(folded), wanted)
        self.assertLess(len(folded), len(",".join(wanted)))
        lines = self.copy(self.button(".result button", "copy one per line"))
        self.assertEqual(set(lines.split()), wanted)

    def test_names_are_copied_so_that_nothing_in_them_runs(self):
        self.open("names")
        folded = self.copy(self.button(".result button", "copy all their nodes"))
        self.assertTrue(folded.endswith(",'$(reboot)','-rf','a b','it'\\''s','x;y'"), folded)
        harmless = folded.partition(",'")[0]
        self.assertEqual(expanded(harmless), {
            "cn", "1cn", "n1", "n01", "n2", "n02", "n10",
            *(f"r{rack}c{number:02}" for rack in (1, 2) for number in (8, 9, 10))})

    def test_quoted_commands_of_a_remedy_are_copied(self):
        issue = next(one for one in self.issues if '("' in one["remedy"])
        self.open("example", f"#issue-{issue['number']}")
        command = re.search(r'\("([^"]+)"', issue["remedy"])[1]
        button = self.find_all(".detail button")[0]
        self.assertEqual(button.get_attribute("title"), command)
        self.assertEqual(self.copy(button), command)

    def test_without_a_clipboard_of_the_newer_kind_texts_are_copied_all_the_same(self):
        script = self.browser.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {
            "source": "Object.defineProperty(navigator, 'clipboard', { value: undefined })"})
        self.open_issue()
        self.assertIsNone(self.ask("navigator.clipboard"))
        self.assertEqual(self.copy(self.button(".detail button", "copy")),
                         self.issue["nodes_folded"])
        self.browser.execute_cdp_cmd("Page.removeScriptToEvaluateOnNewDocument", script)


class NodeMapTest(ScriptedPageCase):
    def point_at(self, x, y):
        """Moves the pointer to a place of the map, in pixels from its corner."""
        element = self.find(".map")
        self.ask("arguments[0].scrollIntoView({ block: 'center' })", element)
        size = element.size
        return ActionChains(self.browser).move_to_element_with_offset(
            element, x - size["width"] // 2, y - size["height"] // 2)

    def test_the_pointer_tells_of_a_node_and_a_click_shows_its_issues(self):
        self.open("example")
        self.point_at(10, 18 + 10).perform()
        tip = self.find(".tip").text
        node = tip.split(":")[0]
        self.assertEqual(node, "cn001")
        wanted = self.numbers(lambda issue: node in issue["nodes"])
        self.assertIn(f"{len(wanted)} issue", tip)
        self.point_at(10, 18 + 10).click().perform()
        self.assertEqual(self.shown(), wanted)
        self.assertIn(f"node {node}", self.find(".chosen").text)
        self.button(".chosen button", "remove").click()
        self.assertEqual(self.shown(), [issue["number"] for issue in self.issues])

    def test_keys_move_from_node_to_node_and_show_issues(self):
        self.open("example")
        self.ask("document.querySelector('.cell-button').focus()")
        self.assertTrue(self.find(".tip").text.startswith("cn001: "))
        self.press(Keys.RIGHT, Keys.RIGHT)
        label = self.find(".cell-button").get_attribute("aria-label")
        self.assertTrue(label.startswith("cn003: "), label)
        self.assertEqual(self.find(".tip").text, label)
        self.press(Keys.ENTER)
        self.assertEqual(self.shown(), self.numbers(lambda issue: "cn003" in issue["nodes"]))

    def test_keys_end_at_the_last_node(self):
        self.open("example")
        self.ask("document.querySelector('.cell-button').focus()")
        self.press(Keys.END, Keys.DOWN, Keys.RIGHT)
        last = self.find(".cell-button").get_attribute("aria-label")
        self.press(Keys.HOME, Keys.UP, Keys.LEFT)
        self.assertTrue(self.find(".cell-button").get_attribute("aria-label").startswith("cn001: "))
        self.assertFalse(last.startswith("cn001: "))

    def colors_of(self, x, y, size):
        """Returns the colours of a square of the map as red, green, blue."""
        data = self.ask("Array.from(document.querySelector('.map canvas').getContext('2d')"
                        ".getImageData(arguments[0], arguments[1], arguments[2], arguments[2]).data)",
                        x, y, size)
        return {tuple(data[i:i + 3]) for i in range(0, len(data), 4)}

    def is_green(self, colors):
        return any(green > red + 20 and green > blue + 20 for red, green, blue in colors)

    def test_what_nobody_looked_at_is_hatched_and_never_green(self):
        self.open("silent")
        silent = self.colors_of(20, 18, 19)
        self.assertTrue(self.is_green(self.colors_of(0, 18, 19)))
        self.assertFalse(self.is_green(silent))
        self.assertGreater(len(silent), 2)

    def test_what_is_acknowledged_is_not_clean(self):
        self.open("known")
        self.assertTrue(self.is_green(self.colors_of(0, 18, 19)))
        self.assertFalse(self.is_green(self.colors_of(20, 18, 19)))
        self.ask("document.querySelector('.cell-button').focus()")
        self.press(Keys.RIGHT)
        self.assertEqual(self.find(".tip").text, "cn2: acknowledged")

    def test_the_map_follows_the_setting_of_light_and_dark(self):
        self.open("silent")
        light = self.colors_of(0, 18, 19)
        self.set_media(scheme="dark")
        self.settle()
        self.assertNotEqual(self.colors_of(0, 18, 19), light)

    def test_racks_stand_in_their_order_and_the_others_behind_them(self):
        self.open("racks")
        self.ask("document.querySelector('.cell-button').focus()")
        seen = []
        for _ in range(4):
            seen.append(self.find(".cell-button").get_attribute("aria-label").split(":")[0])
            self.press(Keys.RIGHT)
        self.assertEqual(seen, ["cn3", "cn1", "cn2", "cn4"])

    def test_more_nodes_than_there_is_room_for_are_told_of(self):
        self.open("crowd")
        self.assertEqual(self.find_all(".map"), [])
        self.assertIn("too many to be shown one by one", self.find("#nodes").text)

    def test_thousands_of_nodes_have_cells(self):
        self.open("nodes")
        self.assertTrue(self.find(".map canvas").is_displayed())
        self.assertGreater(self.find(".map").size["height"], 200)
        self.search("cn9999")
        self.assertEqual(self.shown(), [1])


class ReadingTest(ScriptedPageCase):
    def test_a_phone_needs_no_scrolling_to_the_side(self):
        for page in PAGES:
            with self.subTest(page=page.name):
                self.set_width(PHONE)
                self.open(page.stem, "#issue-1")
                self.assert_fits(PHONE)

    def test_twice_the_size_needs_no_scrolling_to_the_side(self):
        self.set_width(640, scale=2)
        self.open("example", "#issue-1")
        self.assert_fits(640)

    def test_texts_can_be_told_from_what_is_behind_them(self):
        for scheme in ("light", "dark"):
            self.set_media(scheme=scheme)
            self.open("example", "#issue-1")
            for text, behind in ((".gist", ".line"), (".line .band", ".line"), (".line", ".line"),
                                 (".detail", ".detail"), (".detail dt", ".detail"),
                                 (".detail a", ".detail"), (".copy", ".copy"), (".help", "html"),
                                 (".result", "html"), ("legend", "html")):
                with self.subTest(scheme=scheme, text=text):
                    self.assert_readable(text, behind)

    def test_prints_what_the_page_has_of_itself(self):
        self.open("example")
        self.set_media("print")
        self.assertTrue(self.find("article").is_displayed())
        for part in (".list", ".filter", ".map"):
            self.assertFalse(self.find(part).is_displayed())

    def test_a_page_that_was_cut_off_says_so(self):
        page = (FOLDER / "example.html").read_text()
        for end in ('id="changes"', 'id="issues"', '"groups"', "<script>", "class NodeTable", "<footer>"):
            with self.subTest(end=end):
                (FOLDER / "cut.html").write_text(page[:page.index(end)])
                self.open("cut")
                (FOLDER / "cut.html").unlink()
                self.wait_for(lambda: self.find(".cut-off").is_displayed())
        self.open("example")
        time.sleep(2.5)
        self.assertFalse(self.find(".cut-off").is_displayed())

    def test_values_that_differ_are_drawn(self):
        self.open("values", "#issue-1")
        self.assertIn("Values between 60", self.find(".spread").get_attribute("aria-label"))
        heights = [float(bar.get_attribute("height")) for bar in self.find_all(".spread rect")]
        self.assertGreater(len(set(heights)), 1)
        self.assertIn("more between them", self.find(".detail").text)


class HostileTest(ScriptedPageCase):
    def test_nothing_of_hostile_texts_becomes_an_element(self):
        for number in range(1, len(report_of("hostile")["issues"]) + 1):
            self.open("hostile", f"#issue-{number}")
            self.assertEqual(len(self.find_all(".detail")), 1)
            self.assertEqual(self.ask("document.querySelectorAll('img, iframe, link, object, embed, "
                                      "base, video, audio').length"), 0)
            self.assertEqual(self.ask("document.querySelectorAll('script').length"), 2)
            self.assertEqual(self.ask("document.querySelectorAll('style').length"), 1)
            self.assertEqual(self.ask("performance.getEntriesByType('resource').length"), 0)
            self.assert_no_message()
        names = {name for element in self.ask("Array.from(document.querySelectorAll('body *'), "
                                              "element => element.getAttributeNames())")
                 for name in element}
        self.assertEqual({name for name in names if name.startswith("on")}, set())
        self.assertEqual(names & {"src", "srcset", "action", "formaction", "background"}, set())

    def test_hostile_texts_are_texts(self):
        self.open("hostile")
        messages = {issue["message"] for issue in report_of("hostile")["issues"]}
        for number, issue in enumerate(report_of("hostile")["issues"], 1):
            self.open("hostile", f"#issue-{number}")
            text = self.ask("document.querySelector('.detail .message')?.textContent ?? ''")
            self.assertEqual(text[:5000], issue["message"][:5000])
        self.assertIn("</script>", messages)

    def test_hostile_texts_fetch_nothing(self):
        server = Server("img-src 'self'")
        self.browser.get("about:blank")
        self.browser.get(server.url("hostile.html#issue-1"))
        self.assertEqual(len(self.find_all(".detail")), 1)
        # The browser itself asks for a picture of a page that names none.
        self.assertEqual(set(server.asked) - {"/favicon.ico"}, {"/hostile.html"})
        server.shutdown()

    def test_a_policy_that_forbids_scripts_leaves_all_to_read(self):
        server = Server("sandbox; default-src 'none'; img-src 'self'; style-src 'self'")
        self.browser.get("about:blank")
        self.browser.get(server.url("example.html"))
        self.assertNotEqual(self.find("html").get_attribute("class"), "scripted")
        self.assertTrue(self.find("article").is_displayed())
        self.assertIn("Cluster health: ✖ FAIL", self.find("h1").text)
        server.shutdown()


def expanded(folded):
    """Returns the nodes of a set as ClusterShell, which has clush, reads it."""
    return set(subprocess.run(["nodeset", "-e", folded], check=True, capture_output=True,
                              text=True).stdout.split())


if __name__ == "__main__":
    main()
