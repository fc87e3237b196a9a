"""Everything that a bundle can set is drawn, obeyed, or said in the log not to be carried."""

import re
import sys
import unittest
from pathlib import Path

import census

ROOT = Path(__file__).resolve().parents[2]
INCLUDE = [ROOT / 'simulator', ROOT / 'include']
UMBRELLAS = ['UIKit/UIKit.h', 'Preferences/Preferences.h', 'NorvikAppList/NorvikAppList.h',
             'NorvikAppList/NorvikAppListTableViewController.h', 'PrivateFoundation/NSTask.h',
             'CoreFoundation/CoreFoundation.h', 'FrontBoardServices/FrontBoardServices.h',
             'SpringBoardServices/SpringBoardServices.h', 'MobileCoreServices/MobileCoreServices.h',
             'ImageIO/ImageIO.h', 'SafariServices/SafariServices.h', 'MessageUI/MessageUI.h',
             'LocalAuthentication/LocalAuthentication.h', 'AudioToolbox/AudioToolbox.h']
FOLDERS = ['CoreFoundation', 'CoreGraphics', 'CoreImage', 'ImageIO', 'QuartzCore', 'Foundation', 'UIKit', 'Preferences',
           'AppList', 'Services', 'SafariServices', 'MessageUI', 'LocalAuthentication', 'AudioToolbox', 'dispatch',
           'Settings']

# A device does no more with these either than the simulator does. Each has its reason.
KEPT = {
    'PSListController.specifierID': 'for the bundle to read back',
    'PSSpecifier.userInfo': 'for the bundle to read back',
    'CALayer.allowsEdgeAntialiasing': 'a hint for the sake of speed, without a look',
    'CALayer.drawsAsynchronously': 'a hint for the sake of speed, without a look',
    'CALayer.opaque': 'a promise for the sake of speed, without a look',
    'CALayer.rasterizationScale': 'a hint for the sake of speed, without a look',
    'CALayer.shouldRasterize': 'a hint for the sake of speed, without a look',
    'CIFilter.name': 'for the bundle to read back',
    'UIBarItem.tag': 'for the bundle to read back',
    'NSTextAttachment.fileType': 'for the bundle to read back: the bytes say themselves what they are',
    'NSURLSession.sessionDescription': 'for the bundle to read back',
    'NSURLSessionTask.taskDescription': 'for the bundle to read back',
    '-[UIPanGestureRecognizer setTranslation:inView:]': 'for translationInView:, which the bundle asks',
    'PSFooterHyperlinkView.URL': 'for a touch of the link, which its button tells of',
    'PSFooterHyperlinkView.action': 'for a touch of the link, which its button tells of',
    'PSFooterHyperlinkView.target': 'for a touch of the link, which its button tells of',
    '-[MFMailComposeViewController setBccRecipients:]': 'no account, no mail: none of these is ever made',
    '-[MFMailComposeViewController setCcRecipients:]': 'no account, no mail: none of these is ever made',
    '-[MFMailComposeViewController setMessageBody:isHTML:]': 'no account, no mail: none of these is ever made',
    '-[MFMailComposeViewController setSubject:]': 'no account, no mail: none of these is ever made',
    '-[MFMailComposeViewController setToRecipients:]': 'no account, no mail: none of these is ever made',
    'MFMailComposeViewController.mailComposeDelegate': 'no account, no mail: none of these is ever made',
    'MFMessageComposeViewController.body': 'no account, no messages: none of these is ever made',
    'MFMessageComposeViewController.messageComposeDelegate': 'no account, no messages: none of these is ever made',
    'MFMessageComposeViewController.recipients': 'no account, no messages: none of these is ever made',
    'NSLayoutConstraint.shouldBeArchived': 'for the bundle to read back',
    'NSLayoutConstraint.identifier': 'for its description, as in the log of constraints that contradict each other',
    'UIView.multipleTouchEnabled': 'there is one finger',
    'UIView.exclusiveTouch': 'there is one finger',
    'UIGestureRecognizer.name': 'for the bundle to read back',
    'UIView.tag': 'for viewWithTag:, which the bundle asks',
    'UIView.opaque': 'a promise for the sake of speed, without a look',
    'UIGraphicsImageRendererFormat.opaque': 'for the image that the bundle is given',
    'UIGraphicsImageRendererFormat.scale': 'for the image that the bundle is given',
    'UIViewAnimating.fractionComplete': "the protocol's; an animator says that its own is not carried",
    'UIViewAnimating.reversed': "the protocol's; an animator obeys its own",
    'UIPasteboard.strings': 'for `string` and `strings`; the host shows the first',
    '-[UIView setAnimationsEnabled:]': 'nothing moves: an intended difference',
    '-[UIView setAnimationDuration:]': 'nothing moves: an intended difference',
    '-[CATransaction setAnimationDuration:]': 'nothing moves: an intended difference',
    '-[CATransaction setAnimationTimingFunction:]': 'nothing moves: an intended difference',
    '-[CATransaction setDisableActions:]': 'nothing moves: an intended difference',
    'CAAnimation.timingFunction': 'nothing moves: an intended difference',
    'CAKeyframeAnimation.calculationMode': 'nothing moves: an intended difference',
    'CAKeyframeAnimation.keyTimes': 'nothing moves: an intended difference',
    'CAKeyframeAnimation.rotationMode': 'nothing moves: an intended difference',
    'CAKeyframeAnimation.timingFunctions': 'nothing moves: an intended difference',
    'CAMediaTiming.beginTime': 'nothing moves: an intended difference',
    'CAMediaTiming.duration': 'nothing moves: an intended difference',
    'CAMediaTiming.speed': 'nothing moves: an intended difference',
    'CAMediaTiming.timeOffset': 'nothing moves: an intended difference',
    'CAPropertyAnimation.cumulative': 'nothing moves: an intended difference',
    'CATransition.subtype': 'nothing moves: an intended difference',
    'CATransition.type': 'nothing moves: an intended difference',
    'CASpringAnimation.damping': 'for settlingDuration, which the bundle asks; else nothing moves',
    'CASpringAnimation.initialVelocity': 'for settlingDuration, which the bundle asks; else nothing moves',
    'CASpringAnimation.mass': 'for settlingDuration, which the bundle asks; else nothing moves',
    'CASpringAnimation.stiffness': 'for settlingDuration, which the bundle asks; else nothing moves',
    '-[CALayer setNeedsDisplayInRect:]': 'the whole is drawn anew',
    '-[UIView setNeedsDisplayInRect:]': 'the whole is drawn anew',
    'UIScrollView.bounces': 'nothing moves: an intended difference',
    'UIViewController.definesPresentationContext': 'a search belongs to its own page in any case',
    'UIViewController.modalTransitionStyle': 'nothing moves: an intended difference',
}


def public_headers():
  """What the umbrella headers lead to: all that a bundle is compiled against."""
  found, left = set(), [path for name in UMBRELLAS for folder in INCLUDE if (path := folder / name).exists()]
  while left:
    path = left.pop().resolve()
    if str(path) in found:
      continue
    found.add(str(path))
    for name in re.findall(r'#\s*(?:import|include) <([^>]+)>', path.read_text()):
      left += [folder / name for folder in INCLUDE if name.endswith('.h') and (folder / name).exists()]
  return found


def sources_of(paths, arguments, is_public):
  sources = census.Sources()
  for unit, good in census.parse_together([str(path) for path in paths], arguments):
    sources.read(unit, good, is_public)
  return sources


class CensusTest(unittest.TestCase):
  """The simulator's own sources."""

  @classmethod
  def setUpClass(cls):
    sys.setrecursionlimit(10_000)  # As deep as expressions are nested.
    cls.headers = public_headers()
    sources = (path for folder in FOLDERS for path in sorted((ROOT / 'simulator' / folder).rglob('*.mm')))
    paths = [path for path in sources if path.name != 'main.mm']
    cls.sources = sources_of(paths, census.arguments(ROOT), cls.headers.__contains__)
    cls.dead = {setter.name: setter for setter in cls.sources.dead()}

  def test_the_headers_and_their_setters_are_found(self):
    self.assertGreater(len(self.headers), 80)
    names = {setter.name for setter in self.sources.setters.values()}
    self.assertLessEqual({'CALayer.cornerRadius', 'UISwitch.on', 'UITextInputTraits.keyboardType',
                          'CGContextSetLineWidth', '-[UIButton setTitle:forState:]',
                          '-[PSTableCell setCellEnabled:]', 'PSSpecifier.name'}, names)
    self.assertNotIn('UIDevice.name', names, 'cannot be set')

  def test_nothing_that_can_be_set_is_ignored_in_silence(self):
    silent = [f'{setter.name} ({Path(setter.place).name})' for name, setter in self.dead.items() if name not in KEPT]
    self.assertEqual(silent, [], 'draw it, obey it, take it out of the header, or say so with sim::notCarried')

  def test_the_reasons_are_those_of_setters_that_nobody_hears(self):
    self.assertEqual(sorted(set(KEPT) - set(self.dead)), [])


class FixtureTest(unittest.TestCase):
  """A small framework whose setters are known to be alive or dead: "alive" or "dead" begins each name."""

  def test_tells_the_dead_from_the_living(self):
    header, source = (Path(__file__).with_name(name) for name in ('Fixture.h', 'Fixture.mm'))
    sources = sources_of([source], census.arguments(ROOT), lambda path: path == str(header))
    dead = {setter.name for setter in sources.dead()}
    names = {setter.name for setter in sources.setters.values()}
    expected = {name for name in names if re.search(r'dead', name, re.IGNORECASE)}
    self.assertEqual({name for name in names if not re.search(r'dead|alive', name, re.IGNORECASE)}, set())
    self.assertGreaterEqual(len(expected), 9)
    self.assertEqual(dead, expected)


if __name__ == '__main__':
  unittest.main()
