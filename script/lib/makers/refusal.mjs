/** Why something cannot be done, in a sentence for whoever asked for it. */
export class Refusal extends Error {}
