#import "TidelineHeaderView.h"
#import <QuartzCore/QuartzCore.h>

@implementation TidelineHeaderView {
  UIImageView *_drop;
  UILabel *_summaryLabel;
  UIView *_card;
  CAGradientLayer *_water;
}

- (instancetype)initWithFrame:(CGRect)frame {
  if ((self = [super initWithFrame:frame])) {
    _card = [UIView new];
    _card.translatesAutoresizingMaskIntoConstraints = NO;
    _card.layer.cornerRadius = 14;
    _card.clipsToBounds = YES;
    [self addSubview:_card];

    _water = [CAGradientLayer layer];
    _water.startPoint = CGPointMake(0.5, 0);
    _water.endPoint = CGPointMake(0.5, 1);
    [_card.layer insertSublayer:_water atIndex:0];

    _drop = [[UIImageView alloc] initWithImage:[UIImage systemImageNamed:@"drop.fill"]];
    _drop.tintColor = UIColor.whiteColor;
    _drop.contentMode = UIViewContentModeScaleAspectFit;

    UILabel *title = [UILabel new];
    title.text = @"Tideline";
    title.font = [UIFont fontWithName:@"Georgia-Bold" size:28];
    title.textColor = UIColor.whiteColor;

    _summaryLabel = [UILabel new];
    _summaryLabel.font = [UIFont preferredFontForTextStyle:UIFontTextStyleSubheadline];
    _summaryLabel.textColor = [UIColor colorWithWhite:1 alpha:0.85];
    _summaryLabel.numberOfLines = 0;

    UIStackView *texts = [[UIStackView alloc] initWithArrangedSubviews:@[ title, _summaryLabel ]];
    texts.axis = UILayoutConstraintAxisVertical;
    texts.spacing = 4;
    UIStackView *row = [[UIStackView alloc] initWithArrangedSubviews:@[ _drop, texts ]];
    row.alignment = UIStackViewAlignmentCenter;
    row.spacing = 16;
    row.translatesAutoresizingMaskIntoConstraints = NO;
    [_card addSubview:row];

    UILayoutGuide *margins = self.layoutMarginsGuide;
    [NSLayoutConstraint activateConstraints:@[
      [_drop.widthAnchor constraintEqualToConstant:44],
      [_drop.heightAnchor constraintEqualToAnchor:_drop.widthAnchor],
      [_card.leadingAnchor constraintEqualToAnchor:margins.leadingAnchor],
      [_card.trailingAnchor constraintEqualToAnchor:margins.trailingAnchor],
      [_card.topAnchor constraintEqualToAnchor:self.topAnchor constant:16],
      [_card.bottomAnchor constraintEqualToAnchor:self.bottomAnchor constant:-16],
      [row.leadingAnchor constraintEqualToAnchor:_card.leadingAnchor constant:20],
      [row.trailingAnchor constraintLessThanOrEqualToAnchor:_card.trailingAnchor constant:-20],
      [row.topAnchor constraintEqualToAnchor:_card.topAnchor constant:20],
      [row.bottomAnchor constraintEqualToAnchor:_card.bottomAnchor constant:-20],
    ]];
    [self addGestureRecognizer:[[UITapGestureRecognizer alloc] initWithTarget:self action:@selector(tapped:)]];
  }
  return self;
}

- (void)layoutSubviews {
  [super layoutSubviews];
  [_card layoutIfNeeded];
  _water.frame = _card.bounds;
}

- (void)tapped:(UITapGestureRecognizer *)tap {
  if (tap.state == UIGestureRecognizerStateEnded && self.onTap) self.onTap();
}

- (void)setSummary:(NSString *)summary {
  _summary = [summary copy];
  _summaryLabel.text = summary;
}

- (void)setColour:(UIColor *)colour {
  _colour = colour;
  _water.colors = @[ (id)[colour colorWithAlphaComponent:0.65].CGColor, (id)colour.CGColor ];
}

@end
