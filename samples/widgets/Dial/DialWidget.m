#import <QuartzCore/QuartzCore.h>
#import <UIKit/UIKit.h>
#import <Zuno/ZunoWidgetProtocol.h>

static const CGFloat DialSize = 200;

/// A timer that is set by turning: a drag sideways turns the ring, a double tap sets it back, holding it starts it.
@interface DialWidget : NSObject <ZunoWidgetProtocol, UIGestureRecognizerDelegate>

@property(nonatomic, strong) UIView *contentView;

@end

@implementation DialWidget {
  UIView *_dial;
  UIView *_hand;
  UILabel *_label;
  CAShapeLayer *_ring;
  CAShapeLayer *_progress;
  CGFloat _minutes;
  CGFloat _minutesBefore;
}

@synthesize isActivePage;

- (void)setupWithFrame:(CGRect)frame {
  self.contentView = [[UIView alloc] initWithFrame:frame];
  self.contentView.autoresizingMask = UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight;

  _dial = [UIView new];
  _dial.translatesAutoresizingMaskIntoConstraints = NO;
  _dial.isAccessibilityElement = YES;
  _dial.accessibilityLabel = @"Dial";
  [self.contentView addSubview:_dial];
  _label = [UILabel new];
  _label.translatesAutoresizingMaskIntoConstraints = NO;
  _label.font = [UIFont monospacedDigitSystemFontOfSize:34 weight:UIFontWeightLight];
  [self.contentView addSubview:_label];
  UILayoutGuide *safe = self.contentView.safeAreaLayoutGuide;
  [NSLayoutConstraint activateConstraints:@[
    [_dial.widthAnchor constraintEqualToConstant:DialSize],
    [_dial.heightAnchor constraintEqualToAnchor:_dial.widthAnchor],
    [_dial.centerXAnchor constraintEqualToAnchor:safe.centerXAnchor],
    [_dial.centerYAnchor constraintEqualToAnchor:safe.centerYAnchor],
    [_label.centerXAnchor constraintEqualToAnchor:_dial.centerXAnchor],
    [_label.topAnchor constraintEqualToAnchor:_dial.bottomAnchor constant:24],
  ]];

  _ring = [self ringWithColour:UIColor.tertiarySystemFillColor];
  _progress = [self ringWithColour:UIColor.blackColor];
  CAGradientLayer *colours = [CAGradientLayer layer];
  colours.frame = CGRectMake(0, 0, DialSize, DialSize);
  colours.colors = @[ (id)UIColor.systemOrangeColor.CGColor, (id)UIColor.systemPinkColor.CGColor ];
  colours.mask = _progress;
  [_dial.layer addSublayer:_ring];
  [_dial.layer addSublayer:colours];
  _hand = [[UIView alloc] initWithFrame:CGRectMake(DialSize / 2 - 2, 24, 4, DialSize / 2 - 24)];
  _hand.backgroundColor = UIColor.labelColor;
  _hand.layer.anchorPoint = CGPointMake(0.5, 1);
  _hand.layer.position = CGPointMake(DialSize / 2, DialSize / 2);
  [_dial addSubview:_hand];

  UIPanGestureRecognizer *turn = [[UIPanGestureRecognizer alloc] initWithTarget:self action:@selector(turned:)];
  UITapGestureRecognizer *reset = [[UITapGestureRecognizer alloc] initWithTarget:self action:@selector(wasReset)];
  reset.numberOfTapsRequired = 2;
  UITapGestureRecognizer *more = [[UITapGestureRecognizer alloc] initWithTarget:self action:@selector(oneMore)];
  [more requireGestureRecognizerToFail:reset];
  UILongPressGestureRecognizer *start = [[UILongPressGestureRecognizer alloc] initWithTarget:self
                                                                                     action:@selector(started:)];
  for (UIGestureRecognizer *each in @[ turn, reset, more, start ]) [_dial addGestureRecognizer:each];
  [self show];
}

- (CAShapeLayer *)ringWithColour:(UIColor *)colour {
  CAShapeLayer *ring = [CAShapeLayer layer];
  ring.path = [UIBezierPath bezierPathWithArcCenter:CGPointMake(DialSize / 2, DialSize / 2)
                                             radius:DialSize / 2 - 10
                                         startAngle:-M_PI_2
                                           endAngle:3 * M_PI_2
                                          clockwise:YES]
                  .CGPath;
  ring.fillColor = UIColor.clearColor.CGColor;
  ring.strokeColor = colour.CGColor;
  ring.lineWidth = 16;
  ring.lineCap = kCALineCapRound;
  return ring;
}

- (void)show {
  _label.text = [NSString stringWithFormat:@"%d min", (int)round(_minutes)];
  _dial.accessibilityValue = _label.text;
  _progress.strokeEnd = _minutes / 60;
  [UIView animateWithDuration:0.2
                   animations:^{
                     self->_hand.transform = CGAffineTransformMakeRotation(self->_minutes / 60 * 2 * M_PI);
                   }];
}

- (void)turned:(UIPanGestureRecognizer *)turn {
  if (turn.state == UIGestureRecognizerStateBegan) _minutesBefore = _minutes;
  CGFloat minutes = _minutesBefore + [turn translationInView:_dial].x / 4;
  _minutes = MIN(MAX(minutes, 0), 60);
  [self show];
}

- (void)wasReset {
  _minutes = 0;
  [self show];
}

- (void)oneMore {
  _minutes = MIN(_minutes + 1, 60);
  [self show];
}

- (void)started:(UILongPressGestureRecognizer *)start {
  if (start.state == UIGestureRecognizerStateBegan) _label.text = @"Started";
}

- (void)viewDidDisappear {
}

@end
