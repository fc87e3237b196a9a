// The part of MessageUI that a device without accounts has: nothing can be sent.
#pragma once

#import <UIKit/UIKit.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSInteger, MFMailComposeResult) {
  MFMailComposeResultCancelled,
  MFMailComposeResultSaved,
  MFMailComposeResultSent,
  MFMailComposeResultFailed,
};

@class MFMailComposeViewController, MFMessageComposeViewController;

@protocol MFMailComposeViewControllerDelegate <NSObject>
@optional
- (void)mailComposeController:(MFMailComposeViewController *)controller
          didFinishWithResult:(MFMailComposeResult)result
                        error:(nullable NSError *)error;
@end

/// nil instead of an object while `canSendMail` is NO, which is always.
@interface MFMailComposeViewController : UINavigationController {
 @private
  __unsafe_unretained id<MFMailComposeViewControllerDelegate> _mailComposeDelegate;
}
+ (BOOL)canSendMail;
/// Not owned.
@property(nonatomic, assign, nullable) id<MFMailComposeViewControllerDelegate> mailComposeDelegate;
- (void)setSubject:(NSString *)subject;
- (void)setToRecipients:(nullable NSArray<NSString *> *)toRecipients;
- (void)setCcRecipients:(nullable NSArray<NSString *> *)ccRecipients;
- (void)setBccRecipients:(nullable NSArray<NSString *> *)bccRecipients;
- (void)setMessageBody:(NSString *)body isHTML:(BOOL)isHTML;
- (void)addAttachmentData:(NSData *)attachment mimeType:(NSString *)mimeType fileName:(NSString *)filename;
@end

typedef NS_ENUM(NSInteger, MessageComposeResult) {
  MessageComposeResultCancelled,
  MessageComposeResultSent,
  MessageComposeResultFailed,
};

@protocol MFMessageComposeViewControllerDelegate <NSObject>
- (void)messageComposeViewController:(MFMessageComposeViewController *)controller
                 didFinishWithResult:(MessageComposeResult)result;
@end

/// nil instead of an object while `canSendText` is NO, which is always.
@interface MFMessageComposeViewController : UINavigationController {
 @private
  __unsafe_unretained id<MFMessageComposeViewControllerDelegate> _messageComposeDelegate;
  NSArray<NSString *> *_recipients;
  NSString *_body;
}
+ (BOOL)canSendText;
+ (BOOL)canSendSubject;
+ (BOOL)canSendAttachments;
/// Not owned.
@property(nonatomic, assign, nullable) id<MFMessageComposeViewControllerDelegate> messageComposeDelegate;
@property(nonatomic, copy, nullable) NSArray<NSString *> *recipients;
@property(nonatomic, copy, nullable) NSString *body;
@end

NS_ASSUME_NONNULL_END
