/** A page that is presented over the others. What is on it is not shown. */
export const page = { title: 'Page', empty: 'The simulator cannot show this page.' };
